#pragma once

#include <QImage>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/Render.h"
#include "fakes/StoreWorld.h"
#include "kit/OffScreen.h"
#include "views/ribbon/RibbonPanel.h"

namespace noonward::test {

/// A situation the ribbon is drawn in.
struct Situation {
    const char* name = "";
    Config config = threePlaces();
    const char* here = "Europe/London";       ///< this computer's zone
    const char* now = "2026-03-18 09:40";     ///< UTC; a Wednesday
    std::function<void(StoreWorld&)> before;  ///< before the store is made
    std::function<void(Store&)> prepare;      ///< after it is made
    Scheme scheme = Scheme::dark;
    RibbonPanel::Options options{.solid = true, .demonstration = true};
};

/// The ribbon of a situation, laid out and painted at two pixels a point.
class RibbonScene {
 public:
    explicit RibbonScene(const Situation& situation)
        : world(situation.here, situation.now, situation.config),
          store(prepared(world, situation)),
          panel(*store, ui, situation.options),
          scheme(situation.scheme) {
        if (situation.prepare) situation.prepare(*store);
    }

    kit::Placed placed() const { return kit::layOut(panel.body(scheme), rootEnvironment()); }

    QImage picture() const {
        kit::Tiles tiles;
        return kit::paintOffScreen(placed(), 2, tiles);
    }

    StoreWorld world;
    std::unique_ptr<Store> store;
    NotchUI ui;
    RibbonPanel panel;
    Scheme scheme;

 private:
    static std::unique_ptr<Store> prepared(StoreWorld& world, const Situation& situation) {
        if (situation.before) situation.before(world);
        return std::make_unique<Store>(world.services());
    }
};

/// Six places with the longest names the catalogue has.
inline Config sixPlaces() {
    Config config = threePlaces();
    config.places.push_back(
        {.label = "Ho Chi Minh City", .shortName = "SGN", .zone = "Asia/Ho_Chi_Minh"});
    config.places.push_back({.label = "Kathmandu", .shortName = "KTM", .zone = "Asia/Kathmandu"});
    config.places.push_back(
        {.label = "Rio de Janeiro", .shortName = "RIO", .zone = "America/Sao_Paulo"});
    return config;
}

}  // namespace noonward::test
