#include "app/Snapshot.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "app/Render.h"
#include "base/Unicode.h"
#include "kit/Scrolling.h"
#include "kit/Shapes.h"
#include "views/notch/NotchView.h"
#include "views/ribbon/RibbonPanel.h"
#include "views/settings/SettingsView.h"
#include "views/welcome/WelcomeView.h"

namespace noonward {

using kit::View;

namespace {

constexpr double notchMargin = 30;
constexpr kit::Colour behindTheNotch = kit::Colour::rgb(0x3A4A5A);

View onColour(kit::Colour colour, const View& view) {
    return view.background(kit::rectangle().fill(colour));
}

View inMargins(const View& notch) {
    return notch.padding({.horizontal = notchMargin, .vertical = notchMargin});
}

void write(const std::string& path, const View& view) {
    const QByteArray data = render(view);
    if (data.isEmpty()) return;
    // Into a pipe one would write for ever.
    std::error_code error;
    namespace fs = std::filesystem;
    if (fs::exists(path, error) && !fs::is_regular_file(path, error)) return;
    std::ofstream(path, std::ios::binary | std::ios::trunc).write(data.data(), data.size());
}

void leaveOut(Config& config, std::string_view label) {
    std::erase_if(config.places, [&](const Place& place) { return place.label == label; });
}

std::optional<Travel> travelOf(Demonstration::TravelState state, const SystemZone& zone) {
    if (state == Demonstration::TravelState::ask) return std::nullopt;
    return Travel{zone.current().identifier(), state == Demonstration::TravelState::here};
}

// Each step shows a configuration of its own: what is left out first may make another place home.
void changeConfiguration(const Demonstration& demonstration, Store& store, const SystemZone& zone) {
    const auto show = [&store](auto edit) {
        Config config = store.config();
        edit(config);
        store.showWithoutSaving(config);
    };
    if (demonstration.five) show([](Config& config) { leaveOut(config, "San Francisco"); });
    if (demonstration.travel) {
        show([&](Config& config) { config.travel = travelOf(*demonstration.travel, zone); });
        // The row for where the computer is may bring a country of its own.
        store.fetchHolidays();
    }
    if (demonstration.roll) show([](Config& config) { config.rolling = true; });
}

void plan(const Demonstration& demonstration, Store& store) {
    if (demonstration.column) store.propose(*demonstration.column);
    if (demonstration.minutes) store.setDuration(*demonstration.minutes);
    if (demonstration.time) {
        // As if the user had typed it and pressed Return: what is not understood changes nothing.
        store.startTyping(*demonstration.time);
        store.finishTyping(true);
    }
    std::set<std::string> hidden = store.hidden();
    for (const std::string& label : demonstration.hide)
        hidden.insert(unicode::lowercased(label));
    store.hidden = hidden;
    if (demonstration.format) store.format = *demonstration.format;
}

}  // namespace

void takeSnapshots(const Demonstration& demonstration, Store& store, NotchUI& ui,
                   const SystemZone& zone, const SettingsView::Services& services) {
    changeConfiguration(demonstration, store, zone);
    ui.updateReady = demonstration.update;
    plan(demonstration, store);
    ui.expanded = true;
    ui.showTimes = true;
    ui.panelShown = true;

    const Scheme scheme = demonstration.light ? Scheme::light : Scheme::dark;
    if (demonstration.ribbon) {
        const RibbonPanel panel(store, ui, {.solid = true, .demonstration = true});
        write(*demonstration.ribbon, panel.body(scheme));
    }
    if (demonstration.settings) {
        const SettingsView settings(store, ui, services,
                                    {.query = demonstration.query, .editing = demonstration.edit});
        // As in its window, what is open is scrolled into sight.
        std::set<kit::Id> shown;
        kit::showAppeared(kit::layOut(settings.body(scheme), rootEnvironment()), shown);
        write(*demonstration.settings, onColour(Palette::of(scheme).tint, settings.body(scheme)));
    }
    if (demonstration.welcome) {
        const WelcomeView welcome(store, ui, [](bool) {});
        write(*demonstration.welcome, welcome.body(scheme));
    }
    if (demonstration.notch) {
        write(*demonstration.notch,
              onColour(behindTheNotch, inMargins(NotchView(store, ui).body())));
    }
}

}  // namespace noonward
