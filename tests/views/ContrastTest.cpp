#include <gtest/gtest.h>

#include <QHash>
#include <QImage>
#include <QSet>
#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "support/TempFolder.h"
#include "views/NotchUI.h"
#include "views/RibbonScene.h"
#include "views/SettingsScene.h"
#include "views/notch/NotchView.h"
#include "views/theme/Metrics.h"
#include "views/welcome/WelcomeView.h"

// How well every text stands out from its ground, as it is painted, against what the documentation
// says about it.

namespace noonward::test {
namespace {

constexpr double scale = 6;            // strokes are wider than the blur at their edges
constexpr double leastContrast = 4.5;  // WCAG 2.1, 1.4.3

// WCAG 2.1, "relative luminance"
double luminance(QRgb colour) {
    const auto linear = [](int part) {
        const double value = part / 255.0;
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) +
           0.0722 * linear(qBlue(colour));
}

double contrast(QRgb a, QRgb b) {
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// What is low in contrast: colours and grounds, with one of the texts that have them.
using Weak = std::map<std::pair<QRgb, QRgb>, std::string>;

// The ground is what there is most of; texts are what else there is a good deal of, but not at the
// edge: that is something else which reaches in.
void measure(const QImage& picture, const QRectF& part, const std::string& text, Weak& weak) {
    const QRect pixels(QRectF(part.topLeft() * scale, part.size() * scale).toAlignedRect() &
                       picture.rect());
    const QRect inside = pixels.adjusted(1, 1, -1, -1);
    QHash<QRgb, int> counts;
    QSet<QRgb> atTheEdge;
    for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
        for (int x = pixels.left(); x <= pixels.right(); ++x) {
            ++counts[picture.pixel(x, y)];
            if (!inside.contains(x, y)) atTheEdge.insert(picture.pixel(x, y));
        }
    }
    if (counts.isEmpty()) return;
    const auto ground = std::max_element(counts.cbegin(), counts.cend());
    const int others = pixels.width() * pixels.height() - ground.value();
    for (auto each = counts.cbegin(); each != counts.cend(); ++each) {
        if (each.value() < others / 8 || atTheEdge.contains(each.key())) continue;
        if (contrast(each.key(), ground.key()) < leastContrast)
            weak.emplace(std::pair(each.key(), ground.key()), text);
    }
}

// A dash alone is all edge.
bool hasLetters(const std::string& text) {
    return std::any_of(text.begin(), text.end(),
                       [](char each) { return std::isalnum(static_cast<unsigned char>(each)); });
}

// Cells outside the 24 hours fade away on purpose.
bool isFaded(const QRectF& cell) {
    return cell.left() < Metrics::gridX || cell.right() > Metrics::gridX + Metrics::gridWidth;
}

void measure(const kit::Placed& root, Weak& weak) {
    kit::Tiles tiles;
    const QImage picture = kit::paintOffScreen(root, scale, tiles);
    kit::walk(root, [&](const kit::Placed& placed) {
        const std::string what = placed.node->description();
        if (what.starts_with("text \"") && hasLetters(what.substr(5))) {
            measure(picture, placed.rect, what.substr(5), weak);
        } else if (what.starts_with("tile \"") && !isFaded(placed.rect)) {
            measure(picture, placed.rect.adjusted(5, 5, -5, -5),
                    "an hour: " + what.substr(5, what.find('"', 6) - 4), weak);
        }
    });
}

std::string hexadecimal(QRgb colour) {
    char text[8];
    std::snprintf(text, sizeof text, "#%06X", colour & 0xFFFFFF);
    return text;
}

std::string table(const Weak& weak) {
    std::vector<std::pair<double, std::string>> lines;
    for (const auto& [colours, text] : weak) {
        char ratio[16];
        const double value = contrast(colours.first, colours.second);
        std::snprintf(ratio, sizeof ratio, "%.2f", value);
        lines.emplace_back(value, "| " + std::string(ratio) + " | " + hexadecimal(colours.first) +
                                      " | " + hexadecimal(colours.second) + " | " + text + " |\n");
    }
    std::sort(lines.begin(), lines.end());
    std::string all;
    for (const auto& [value, line] : lines)
        all += line;
    return all;
}

// Whole hours apart: marks over an hour lie over all of its cell.
Config oneOfEach() {
    Config config = places(5);
    config.places[1].daysOff = {"2026-03-19"};
    return config;
}

Weak weakIn(Scheme scheme) {
    Weak weak;
    const RibbonPanel::Options live{.solid = false};
    // Tomorrow: without the mark of the present hour, which is no text.
    const auto tomorrow = [](Store& store) { store.changeDay(1); };
    const auto proposed = [](Store& store) {
        store.changeDay(1);
        store.propose(20);
    };
    const auto hidden = [](Store& store) {
        store.changeDay(1);
        store.toggleHidden(store.rows()[1]);
        store.flash = "Copied";
    };
    for (const auto& prepare : {std::function<void(Store&)>(tomorrow), {proposed}, {hidden}}) {
        const RibbonScene scene({.config = oneOfEach(),
                                 .here = "Asia/Tokyo",
                                 .prepare = prepare,
                                 .scheme = scheme,
                                 .options = live});
        measure(scene.placed(), weak);
    }
    for (const SettingsView::Options& options :
         {SettingsView::Options{.editing = 1}, SettingsView::Options{.query = "san"}}) {
        const SettingsScene settings(threePlaces(), options);
        measure(kit::layOut(settings.view.body(scheme), rootEnvironment()), weak);
    }

    StoreWorld world("Europe/London", "2026-03-18 09:30", threePlaces());
    Store store(world.services());
    NotchUI ui;
    measure(kit::layOut(WelcomeView(store, ui, [](bool) {}).body(scheme), rootEnvironment()), weak);
    ui.expanded = true;
    ui.showTimes = true;
    measure(kit::layOut(NotchView(store, ui).body(), rootEnvironment()), weak);
    return weak;
}

TEST(Contrast, IsAsDocumented) {
    const std::string document = readText(NOONWARD_DOCUMENTS "/contrast.md");
    for (const auto& [name, scheme] :
         {std::pair{"## Dark", Scheme::dark}, {"## Light", Scheme::light}}) {
        const std::string lines = table(weakIn(scheme));
        EXPECT_NE(document.find(lines), std::string::npos)
            << "docs/contrast.md does not say under \"" << name << "\":\n"
            << lines;
    }
}

}  // namespace
}  // namespace noonward::test
