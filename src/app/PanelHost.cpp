#include "app/PanelHost.h"

#include <utility>

#include "model/Store.h"
#include "views/NotchUI.h"

namespace noonward {
namespace {

constexpr double shrunkWidth = 0.94;
constexpr double shrunkHeight = 0.8;
constexpr double raised = 8;  // points

enum Form : std::uint64_t { welcome, ribbon, settings };  // and one more for each showing

}  // namespace

PanelHost::PanelHost(Store& store, NotchUI& ui, const SettingsView::Services& services,
                     std::function<void()> onCopyInvite)
    : store_(store),
      ui_(ui),
      services_(services),
      welcome_(store, ui,
               [&store, &ui](bool choosePlaces) {
                   store.markWelcomed();
                   ui.welcomeShown = false;
                   ui.settingsShown = choosePlaces;
               }),
      ribbon_(store, ui, {.onCopyInvite = std::move(onCopyInvite)}),
      showings_(whenChanged(
          ui.changes(), [&ui] { return ui.settingsShown() && !ui.welcomeShown(); },
          [this] {
              ++showing_;
              settings_.reset();
          })),
      ribbonWatch_(ribbon_.changes().subscribe([this] { changes_.announce(); })) {}

kit::View PanelHost::body(Scheme scheme, Backing backing) const {
    // What cannot be seen through would leave black around it.
    const bool shown = ui_.panelShown() || backing == Backing::square;
    return content(scheme, backing)
        .scale(shown ? 1 : shrunkWidth, shown ? 1 : shrunkHeight, kit::topCentre)
        .opacity(shown ? 1 : 0)
        .offset(0, shown ? 0 : -raised);
}

kit::View PanelHost::content(Scheme scheme, Backing backing) const {
    if (ui_.welcomeShown()) return form(Form::welcome, welcome_.body(scheme, backing));
    if (!ui_.settingsShown()) return form(Form::ribbon, ribbon_.body(scheme, backing));
    // Each time it is shown it is a new one, however short it was away.
    if (!settings_) {
        settings_.emplace(store_, ui_, services_, SettingsView::Options{});
        settingsWatch_ = settings_->changes().subscribe([this] { changes_.announce(); });
    }
    return form(Form::settings + showing_, settings_->body(scheme, backing));
}

}  // namespace noonward
