#pragma once

#include <string>
#include <utility>
#include <vector>

#include "app/Render.h"
#include "fakes/FakeGeocoder.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/StoreWorld.h"
#include "kit/Animation.h"
#include "kit/Description.h"
#include "views/NotchUI.h"
#include "views/settings/SettingsView.h"

namespace noonward::test {

/// London, New York, Singapore and as many of Lagos, Dubai and Riyadh as are asked for.
inline Config places(std::size_t count) {
    Config config = threePlaces();
    for (const char* zone : {"Africa/Lagos", "Asia/Dubai", "Asia/Riyadh"}) {
        const std::string label = std::string(zone).substr(std::string(zone).find('/') + 1);
        config.places.push_back({.label = label, .shortName = label.substr(0, 3), .zone = zone});
    }
    config.places.resize(count);
    return config;
}

/// The settings of a computer in London on a Wednesday in March, twenty to ten.
struct SettingsScene {
    explicit SettingsScene(const Config& config = threePlaces(),
                           const SettingsView::Options& options = {},
                           const std::string& holidaysInTheUS = {})
        : world("Europe/London", "2026-03-18 09:40", config),
          store(withHolidays(world, holidaysInTheUS).services()),
          view(store, ui,
               {.animations = animations,
                .holidays = world.holidays,
                .loginItem = &loginItem,
                .geocoder = &geocoder},
               options) {}

    kit::Placed placed() const { return kit::layOut(view.body(Scheme::dark), rootEnvironment()); }
    bool says(const std::string& words) const {
        return kit::dump(placed()).find(words) != std::string::npos;
    }

    /// Whose week is open; empty: nobody's.
    std::string openWeek() const {
        std::string before;
        for (const kit::Element& element : kit::elements(placed())) {
            if (element.name == " — working week") return before;
            before = element.name;
        }
        return {};
    }

    /// The buttons whose name begins so, in their order.
    std::vector<kit::Element> buttons(const std::string& name) const {
        std::vector<kit::Element> found;
        for (kit::Element& element : kit::elements(placed())) {
            if (element.press && element.name.starts_with(name))
                found.push_back(std::move(element));
        }
        return found;
    }
    void press(const std::string& name, std::size_t which = 0) const {
        buttons(name).at(which).press();
    }
    bool isOn(const std::string& name) const { return buttons(name).at(0).checked.value(); }

    /// What is typed into the field of that placeholder.
    void type(const std::string& placeholder, const std::string& text,
              std::size_t which = 0) const {
        std::vector<kit::TextFieldSpec> fields;
        kit::walk(placed(), [&](const kit::Placed& part) {
            const kit::TextFieldSpec* field = part.node->textField();
            if (field && field->placeholder.starts_with(placeholder)) fields.push_back(*field);
        });
        fields.at(which).onEdit(text);
    }

    std::vector<std::string> labels() {
        std::vector<std::string> all;
        for (const Place& place : world.saved().places)
            all.push_back(place.label);
        return all;
    }

    StoreWorld world;
    FakeGeocoder geocoder;
    FakeLoginItem loginItem;
    kit::Animations animations;
    Store store;
    NotchUI ui;
    SettingsView view;

 private:
    static StoreWorld& withHolidays(StoreWorld& world, const std::string& days) {
        if (!days.empty()) world.cacheHolidays("US", days);
        return world;
    }
};

}  // namespace noonward::test
