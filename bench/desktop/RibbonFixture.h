#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#include "app/Render.h"
#include "config/ConfigFile.h"
#include "holidays/Holidays.h"
#include "kit/OffScreen.h"
#include "model/Store.h"
#include "views/ribbon/RibbonPanel.h"
#include "views/theme/Fonts.h"

namespace noonward::bench {

/// A ribbon of six places on a fixed morning, without files.
class RibbonFixture {
 public:
    RibbonFixture() { store.showWithoutSaving(config()); }

    static Config config() {
        Config config = Config::defaults(*TimeZone::find("Europe/London"));
        config.places.resize(1);
        const std::pair<const char*, const char*> others[] = {{"New York", "America/New_York"},
                                                              {"Singapore", "Asia/Singapore"},
                                                              {"Kathmandu", "Asia/Kathmandu"},
                                                              {"São Paulo", "America/Sao_Paulo"},
                                                              {"Sydney", "Australia/Sydney"}};
        for (const auto& [label, zone] : others) {
            config.places.push_back({.label = label, .shortName = "X", .zone = zone});
        }
        return config;
    }

    kit::Placed placed() const { return kit::layOut(panel.body(Scheme::dark), rootEnvironment()); }

    QImage picture() const {
        kit::Tiles tiles;
        return kit::paintOffScreen(placed(), 2, tiles);
    }

 private:
    struct FixedClock final : Clock {
        Instant now() const override {
            return std::chrono::sys_days(std::chrono::days(20530)) + hours(9) + minutes(41);
        }
    };
    struct London final : SystemZone {
        TimeZone current() const override { return *TimeZone::find("Europe/London"); }
        void resetSystemTimeZone() override {}
    };
    struct NoTimer final : RepeatingTimer {
        Subscription every(std::chrono::milliseconds, std::function<void()>) override { return {}; }
    };
    struct NoZoneChanges final : ZoneChanges {
        Subscription subscribe(std::function<void()>) override { return {}; }
    };

    FixedClock clock_;
    London zone_;
    ConfigFile file_{{}, ConfigFile::Access::readOnly};
    Holidays holidays_{{}, clock_, nullptr};
    NoTimer timer_;
    NoZoneChanges zoneChanges_;

 public:
    Store store{{clock_, zone_, file_, holidays_, timer_, zoneChanges_}};
    NotchUI ui;
    RibbonPanel panel{store, ui, {.solid = true, .demonstration = true}};
};

}  // namespace noonward::bench
