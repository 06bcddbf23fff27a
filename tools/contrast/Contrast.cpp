#include <QApplication>
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

#include "kit/Shapes.h"
#include "views/NotchUI.h"
#include "views/RibbonScene.h"
#include "views/SettingsScene.h"
#include "views/notch/NotchView.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/welcome/WelcomeView.h"

// How well every text stands out from its ground, as it is painted: writes docs/contrast.md.

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

/// A text as it is painted over something.
struct Sample {
    std::string text;
    double contrast = 21;
    QRgb ink = 0;
    QRgb ground = 0;
    const char* behind = "";  ///< the window
};

/// What may lie behind a window.
struct Ground {
    const char* name;
    kit::Colour colour;
};

/// By the text's place among all.
using Samples = std::map<int, Sample>;

// The ground is what there is most of; texts are what else there is a good deal of, but not at the
// edge: that is something else which reaches in.
void measure(const QImage& picture, const QRectF& part, Sample& worst, const char* behind) {
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
        const double found = contrast(each.key(), ground.key());
        if (found < worst.contrast)
            worst = {worst.text, found, each.key(), ground.key(), behind};
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

/// Measures each text of a view in front of what is behind its window.
void measure(const kit::View& view, const Ground& behind, int first, Samples& samples) {
    const kit::Placed root =
        kit::layOut(view.background(kit::rectangle().fill(behind.colour)), rootEnvironment());
    kit::Tiles tiles;
    const QImage picture = kit::paintOffScreen(root, scale, tiles);
    kit::walk(root, [&](const kit::Placed& placed) {
        const std::string what = placed.node->description();
        Sample& worst = samples[first++];
        if (what.starts_with("text \"") && hasLetters(what.substr(5))) {
            worst.text = what.substr(5);
            measure(picture, placed.rect, worst, behind.name);
        } else if (what.starts_with("tile \"") && !isFaded(placed.rect)) {
            worst.text = "an hour: " + what.substr(5, what.find('"', 6) - 4);
            measure(picture, placed.rect.adjusted(5, 5, -5, -5), worst, behind.name);
        }
    });
}

std::string hexadecimal(QRgb colour) {
    char text[8];
    std::snprintf(text, sizeof text, "#%06X", colour & 0xFFFFFF);
    return text;
}

/// Those below the least contrast, the weakest first; of those that look alike one.
void print(const Samples& samples) {
    std::map<std::pair<QRgb, QRgb>, Sample> weak;
    for (const auto& [place, sample] : samples)
        if (sample.contrast < leastContrast) weak.emplace(std::pair(sample.ink, sample.ground), sample);
    std::vector<Sample> lines;
    for (const auto& [colours, sample] : weak)
        lines.push_back(sample);
    std::sort(lines.begin(), lines.end(),
              [](const Sample& a, const Sample& b) { return a.contrast < b.contrast; });
    std::puts("| contrast | text | ground | behind | for example |\n|---|---|---|---|---|");
    for (const Sample& line : lines)
        std::printf("| %.2f | %s | %s | %s | %s |\n", line.contrast, hexadecimal(line.ink).c_str(),
                    hexadecimal(line.ground).c_str(), line.behind, line.text.c_str());
}

// Whole hours apart: marks over an hour lie over all of its cell.
Config oneOfEach() {
    Config config = places(5);
    config.places[1].daysOff = {"2026-03-19"};
    return config;
}

// Each view gets numbers of its own.
constexpr int perView = 100'000;

/// Whatever lies behind the windows lies between these.
constexpr Ground grounds[] = {{"black", kit::black}, {"white", kit::white}};

Samples worstOf(Scheme scheme, Backing backing) {
    // Tomorrow: without the mark of the present hour, which is no text.
    const std::function<void(Store&)> situations[] = {
        [](Store& store) { store.changeDay(1); },
        [](Store& store) {
            store.changeDay(1);
            store.propose(20);
        },
        [](Store& store) {
            store.changeDay(1);
            store.toggleHidden(store.rows()[1]);
            store.flash = "Copied";
        },
    };
    Samples samples;
    int view = 0;
    const auto add = [&](const kit::View& shown) {
        for (const Ground& behind : grounds)
            measure(shown, behind, view, samples);
        view += perView;
    };
    for (const auto& prepare : situations) {
        const RibbonScene scene({.config = oneOfEach(),
                                 .here = "Asia/Tokyo",
                                 .prepare = prepare,
                                 .options = {.solid = false}});
        add(scene.panel.body(scheme, backing));
    }
    for (const SettingsView::Options& options :
         {SettingsView::Options{.editing = 1}, SettingsView::Options{.query = "san"}}) {
        const SettingsScene settings(threePlaces(), options);
        add(settings.view.body(scheme, backing));
    }
    StoreWorld world("Europe/London", "2026-03-18 09:30", threePlaces());
    Store store(world.services());
    NotchUI ui;
    add(WelcomeView(store, ui, [](bool) {}).body(scheme, backing));
    ui.expanded = true;
    ui.showTimes = true;
    add(NotchView(store, ui).body());
    return samples;
}

constexpr const char* introduction = R"(# Contrast

WCAG 2.1 (1.4.3) asks for a contrast of 4.5 : 1 between a text and its ground, and for 3 : 1 where
the text is large (24 pixels, or 18.7 in bold). The palettes stay as they are; these are the texts
that fall below 4.5, as they are painted, with an example of each. They are measured over a black
and over a white desktop, whatever lies behind a panel lies between, and the worse of both counts.
Hours that fade away beside the 24 shown ones are not counted, nor is what cannot be pressed, which
WCAG leaves out as well.

Whoever needs more has the same words from a screen reader, and the times at the left of each row, in
the bar and in what is copied.

`scripts/contrast.sh` writes this document; run it after a change of colours.
)";

}  // namespace
}  // namespace noonward::test

int main(int argc, char** argv) {
    using namespace noonward;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    registerFonts();
    std::fputs(test::introduction, stdout);
    for (const auto& [name, scheme] :
         {std::pair("Dark", Scheme::dark), std::pair("Light", Scheme::light)}) {
        for (const auto& [where, backing] : {std::pair("where the desktop blurs", Backing::frosted),
                                             {"where it does not", Backing::clear}}) {
            std::printf("\n## %s, %s\n\n", name, where);
            test::print(test::worstOf(scheme, backing));
        }
    }
}
