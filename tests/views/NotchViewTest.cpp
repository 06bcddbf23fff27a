#include "views/notch/NotchView.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "app/Render.h"
#include "fakes/StoreWorld.h"
#include "kit/Node.h"
#include "kit/OffScreen.h"
#include "views/NotchUI.h"
#include "views/notch/NotchShape.h"

namespace noonward::test {
namespace {

TEST(NotchShape, HasTheseEdges) {
    struct Case {
        NotchShape shape;
        double height;
        QPointF inside, outside;  // in the left half; the right half is the same
    };
    const NotchShape open{.shoulder = 7, .radius = 14};
    const NotchShape folded{.shoulder = 0, .radius = 10};
    const NotchShape capped{.shoulder = 0, .radius = 30};
    for (const auto& [shape, height, inside, outside] : {
             Case{open, 32, {4.5, 1}, {4, 1}},        // the flare, a parabola
             {open, 32, {5.4, 1.75}, {5.1, 1.75}},    // half way down it
             {open, 32, {7.1, 12}, {6.9, 12}},        // the side
             {open, 32, {10.7, 28.3}, {10.3, 28.7}},  // the bottom corner
             {open, 32, {191, 31.9}, {191, 32.1}},    // the bottom
             {folded, 32, {0.1, 0.1}, {-0.1, 0.1}},   // no flare
             {folded, 32, {2.7, 29.3}, {2.3, 29.7}},
             {capped, 24, {3.2, 20.8}, {2.8, 21.2}},  // 12 points at most
             {capped, 24, {1.2, 18}, {0.9, 18}},
         }) {
        const QPainterPath path = shape.path(QRectF(0, 0, 383, height));
        const auto mirrored = [](const QPointF& point) {
            return QPointF(383 - point.x(), point.y());
        };
        for (const QPointF& point : {inside, mirrored(inside)})
            EXPECT_TRUE(path.contains(point)) << point.x() << ' ' << point.y();
        for (const QPointF& point : {outside, mirrored(outside)})
            EXPECT_FALSE(path.contains(point)) << point.x() << ' ' << point.y();
    }
}

// The notch at a moment; its clocks are of London and Singapore.
struct Scene {
    explicit Scene(const char* now, const Config& config = threePlaces())
        : world("Europe/London", now, config), store(world.services()) {
        ui.expanded = true;
        ui.showTimes = true;
    }

    kit::Placed placed() { return kit::layOut(NotchView(store, ui).body(), rootEnvironment()); }

    QImage picture() {
        kit::Tiles tiles;
        return kit::paintOffScreen(placed(), 2, tiles);
    }

    struct Item {
        QRectF rect;
        std::string name;
    };
    /// What the ears hold, from left to right.
    std::vector<Item> items() {
        std::vector<Item> result;
        kit::walk(placed(), [&](const kit::Placed& node) {
            std::string name = node.node->description();
            if (name.rfind("text \"", 0) == 0) {
                result.push_back({node.rect, name.substr(6, name.size() - 7)});
            } else if (name == "circle") {
                result.push_back({node.rect, "●"});
            } else if (name.rfind("symbol ", 0) == 0) {
                const bool moon = name.find("moon-fill") != std::string::npos;
                result.push_back({node.rect, moon ? "☾" : "↓"});
            }
        });
        std::sort(result.begin(), result.end(),
                  [](const Item& a, const Item& b) { return a.rect.left() < b.rect.left(); });
        return result;
    }

    std::string line() {
        std::string result;
        for (const Item& item : items())
            result += (result.empty() ? "" : " ") + item.name;
        return result;
    }

    StoreWorld world;
    Store store;
    NotchUI ui;
};

TEST(NotchView, HasAClockOnEachSide) {
    struct Case {
        const char* now;  // UTC, and London's until the end of March
        HourFormat format;
        const char* line;
    };
    for (const auto& [now, format, line] : {
             Case{"2026-03-18 09:30", HourFormat::h24, "● LON 09:30 17:30 SIN ●"},
             {"2026-03-18 09:30", HourFormat::h12, "● LON 9:30a 5:30p SIN ●"},
             {"2026-03-18 23:05", HourFormat::h24, "☾ LON 23:05 07:05 SIN ●"},
             {"2026-03-18 23:05", HourFormat::h12, "☾ LON 11:05p 7:05a SIN ●"},
             {"2026-03-18 16:58", HourFormat::utc, "● LON 16:58 00:58 SIN ☾"},
         }) {
        Scene scene(now);
        scene.store.format = format;
        EXPECT_EQ(scene.line(), line) << now;
    }
}

TEST(NotchView, KeepsItsClocksBesideTheCamera) {
    for (const HourFormat format : allHourFormats) {
        for (const char* now : {"2026-03-18 04:44", "2026-03-18 12:44", "2026-03-18 22:44"}) {
            for (const bool update : {false, true}) {
                Scene scene(now);
                scene.store.format = format;
                if (update) scene.ui.updateReady = "1.2";
                double free = 8;  // a point inside the outline
                for (const auto& [rect, name] : scene.items()) {
                    EXPECT_GE(rect.left(), free) << scene.line();
                    EXPECT_TRUE(rect.right() <= 99 || rect.left() >= 284) << scene.line();
                    EXPECT_LE(rect.right(), 375) << scene.line();
                    free = rect.right() + (update ? 2 : 5.999);
                }
                EXPECT_NE(scene.line().find(" LON "), std::string::npos) << scene.line();
                EXPECT_EQ(scene.line().find("…"), std::string::npos) << scene.line();
            }
        }
    }
    for (std::size_t label = 0; label < 64; ++label) {  // of about every width
        Config config = threePlaces();
        config.places[0].shortName = std::string(label / 8, 'W') + std::string(label % 8, 'i');
        Scene scene("2026-03-18 22:44", config);
        scene.ui.updateReady = "1.2";
        EXPECT_GE(scene.items().front().rect.left(), 8) << scene.line();
    }
    Scene roomy("2026-03-18 09:30");
    EXPECT_EQ(roomy.items().front().rect.left(), 21);
    EXPECT_EQ(roomy.items().back().rect.right(), 362);
    EXPECT_NE(kit::dump(roomy.placed()).find("[0 0 383 32]"), std::string::npos);
}

TEST(NotchView, ShowsAnUpdateAtTheLeftEdgeOnly) {
    Scene scene("2026-03-18 09:30");
    scene.ui.updateReady = "1.2";
    EXPECT_EQ(scene.line(), "↓ ● LON 09:30 17:30 SIN ●");
}

TEST(NotchView, MarksThePhaseOfEachPlace) {
    Config config = threePlaces();
    config.places[0].daysOff = std::vector<std::string>{"2026-03-20"};
    struct Case {
        const char* now;
        const char *centre, *edge;
    };
    for (const auto& [now, centre, edge] : {
             Case{"2026-03-18 09:30", "#0094b3", "#0094b3"},  // at work
             {"2026-03-18 20:30", "#ff6d22", "#ff6d22"},      // awake
             {"2026-03-20 12:30", "#000000", "#0094b3"},      // off: only a ring
         }) {
        Scene scene(now, config);
        const QRectF mark = scene.items().front().rect;
        EXPECT_EQ(mark.size(), QSizeF(7, 7));
        const QImage picture = scene.picture();
        const auto at = [&](double x) {
            return picture
                .pixelColor(static_cast<int>(2 * (mark.left() + x)),
                            static_cast<int>(2 * mark.center().y()))
                .name()
                .toStdString();
        };
        EXPECT_EQ(at(3.5), centre) << now;
        EXPECT_EQ(at(0.5), edge) << now;
    }
}

TEST(NotchView, FoldedIsTheCameraAlone) {
    Scene scene("2026-03-18 09:30");
    scene.ui.expanded = false;
    scene.ui.showTimes = false;
    const QImage picture = scene.picture();
    ASSERT_EQ(picture.size(), QSize(766, 64));
    QRect painted;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            if (qAlpha(pixel) == 0) continue;
            painted |= QRect(x, y, 1, 1);
            ASSERT_EQ(pixel & 0xFFFFFF, 0U) << "nothing is written on it";
        }
    }
    EXPECT_EQ(painted, QRect(198, 0, 370, 64));
    EXPECT_LT(qAlpha(picture.pixel(200, 62)), 10) << "its corners are round";
}

TEST(NotchView, OpensWithoutClocksForASinglePlace) {
    Config config = threePlaces();
    config.places.resize(1);
    config.favourites = {"London"};
    Scene scene("2026-03-18 09:30", config);
    EXPECT_EQ(scene.line(), "");
    EXPECT_EQ(qAlpha(scene.picture().pixel(20, 30)), 255);
    EXPECT_EQ(scene.placed().rect.width(), 383);
}

TEST(NotchView, IsTappedAndOffersAMenu) {
    Scene scene("2026-03-18 09:30");
    std::string done;
    scene.ui.onTap = [&] { done += "tap "; };
    scene.ui.onSettings = [&] { done += "settings "; };
    scene.ui.onUpdates = [&] { done += "updates "; };
    scene.ui.onQuit = [&] { done += "quit"; };

    const kit::Placed root = scene.placed();
    for (const QPointF& point : {QPointF(0, 0), QPointF(190, 31)}) {
        const auto path = kit::hit(root, point, [](const kit::Placed& node) {
            return node.node->interaction() && node.node->interaction()->press;
        });
        ASSERT_FALSE(path.empty());
        path.back()->node->interaction()->press();
    }
    std::vector<std::string> titles;
    const kit::Placed* menu = kit::find(root, [](const kit::Placed& node) {
        return node.node->interaction() && !node.node->interaction()->menu.empty();
    });
    ASSERT_NE(menu, nullptr);
    for (const kit::MenuItem& item : menu->node->interaction()->menu) {
        titles.push_back(item.title);
        if (item.choose) item.choose();
    }
    EXPECT_EQ(titles, (std::vector<std::string>{"Places & appearance…", "Check for Updates…", "",
                                                "Quit Noonward"}));
    EXPECT_EQ(done, "tap tap settings updates quit");
}

}  // namespace
}  // namespace noonward::test
