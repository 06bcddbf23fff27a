#include "kit/Text.h"

#include <gtest/gtest.h>

#include <QFontInfo>

#include "kit/OffScreen.h"
#include "kit/Paragraph.h"
#include "kit/Placed.h"
#include "kit/Shapes.h"
#include "kit/Stacks.h"
#include "kit/Symbol.h"
#include "views/theme/Fonts.h"

namespace kit {
namespace {

using noonward::hanken;

const Environment environment{.font = systemFont(13), .colour = black};

// The rectangle that ink covers, in pixels.
QRect inked(const QImage& image) {
    QRect result;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 8) result |= QRect(x, y, 1, 1);
        }
    }
    return result;
}

TEST(Fonts, AreTheOnesAskedFor) {
    for (const Weight weight :
         {Weight::light, Weight::regular, Weight::medium, Weight::semibold, Weight::bold}) {
        const FontMetrics& known = metrics(hanken(20, weight));
        EXPECT_EQ(QFontInfo(known.font).family().toStdString(), "Hanken Grotesk");
        EXPECT_EQ(QFontInfo(known.font).weight(), static_cast<int>(weight));
        EXPECT_TRUE(QFontInfo(known.font).exactMatch());
        // Tabular digits: 560 of 1000 units, in the font engine's sixty-fourths.
        for (const char digit : {'0', '1', '4', '7'}) {
            EXPECT_NEAR(advance(hanken(20, weight), QString(QLatin1Char(digit))), 11.2, 1.0 / 64);
        }
    }
}

TEST(Text, IsAsWideAsItsRoomAtMost) {
    const Font font = hanken(14, Weight::semibold);
    const std::string line = "Llanfairpwllgwyngyll and São Paulo";
    const View view = text(line).font(font);
    const double ideal = view->measure({}, environment).width();
    EXPECT_NEAR(ideal, advance(font, QString::fromStdString(line)), 0.01);
    for (double room = 20; room < ideal + 20; room += 7.3) {
        const double width = view->measure({room, std::nullopt}, environment).width();
        EXPECT_DOUBLE_EQ(width, std::min(room, ideal));
        const QImage image =
            renderOffScreen(view.frame({.width = room, .height = 24, .alignment = leading})
                                .padding({.trailing = 40}),
                            environment, 2);
        EXPECT_LE(inked(image).right(), 2 * room + 1) << room;
        EXPECT_FALSE(inked(image).isNull()) << room;
    }
}

// Three runs share one ellipsis, whichever of them it meets, and nothing is drawn behind it.
TEST(Text, RunsShareOneEllipsis) {
    const std::vector<TextRun> runs{{.text = "Fairest hour   ", .font = hanken(14, Weight::bold)},
                                    {.text = "Mon 4 Mar · ", .font = hanken(14)},
                                    {.text = "London 14:00", .font = hanken(12)}};
    const View view = text(runs);
    const double ideal = view->measure({}, environment).width();
    for (double room = 30; room < ideal; room += 3.7) {
        const QImage image =
            renderOffScreen(view.frame({.width = room, .height = 24, .alignment = leading})
                                .padding({.trailing = 60}),
                            environment, 2);
        EXPECT_LE(inked(image).right(), 2 * room + 1) << room;
        EXPECT_GE(inked(image).right(), 2 * room - 70) << room;
    }
}

TEST(Text, StaysOnOneLineWhateverItHolds) {
    const std::string nul("a\0b", 3);
    const std::string flood = "e" + std::string(100000, '\xCC');
    for (const std::string& hostile :
         {std::string("two\nlines"), nul, std::string("\xE2\x80\xA8sep"), flood,
          std::string("\xFF\xFE ill-formed"), std::string(200000, 'W'), std::string()}) {
        const QSizeF size = text(hostile).font(hanken(15))->measure({100.0, {}}, environment);
        EXPECT_LE(size.width(), 100);
        EXPECT_EQ(size.height(), metrics(hanken(15)).lineHeight);
        renderOffScreen(text(hostile).frame({.width = 100, .height = 20}), environment, 1);
    }
}

TEST(Text, SharesABaseline) {
    const Placed row = layOut(
        hstack({.align = Vertical::firstBaseline, .spacing = 4},
               {text("19:05").font(hanken(27, Weight::light)),
                vstack({}, {text("London").font(hanken(15)), text("GMT").font(hanken(12))})}),
        environment);
    const auto baseline = [&](const Placed& child) {
        return child.rect.top() + child.node->firstBaseline(child.rect.size(), environment);
    };
    EXPECT_NEAR(baseline(row.children[0]), baseline(row.children[1]), 1e-9);
    EXPECT_GE(row.children[1].rect.top(), 0);
}

TEST(Symbols, AreDrawnInTheColourAround) {
    constexpr SymbolSource envelope{":/noonward/symbols/envelope-simple.svg"};
    const View view = symbol(envelope).font(systemFont(16)).colour(Colour::rgb(0x3EC5E4));
    const QImage image = renderOffScreen(view, environment, 2);
    EXPECT_EQ(image.size(), QSize(40, 40));
    ASSERT_FALSE(inked(image).isNull());
    EXPECT_GT(inked(image).width(), 28);
    for (int x = 0; x < 40; ++x) {
        const QColor colour = image.pixelColor(x, 20);
        if (colour.alpha() == 255) {
            EXPECT_EQ(colour.rgb() & 0xFFFFFF, 0x3EC5E4U);
        }
    }
}

// What piles up over one letter stays in its line; what languages write is whole.
TEST(Text, KeepsPiledMarksInItsLine) {
    const Font font = hanken(14);
    const auto inkOf = [&](const std::string& line) {
        const double margin = 60;
        const View view = text(line).font(font).padding({.horizontal = margin, .vertical = margin});
        Tiles tiles;
        return inked(paintOffScreen(layOut(view, environment), 2, tiles));
    };
    std::string pile = "Z";
    for (int mark = 0; mark < 60; ++mark)
        pile += "\u0302";
    const int top = 120;  // of the line, in pixels
    EXPECT_GE(inkOf(pile).top(), top);
    EXPECT_LT(inkOf(pile).bottom(), top + 2 * metrics(font).lineHeight);
    EXPECT_LT(inkOf("Ẫ").top(), inkOf("A").top());
}

std::vector<std::string> linesOf(const Placed& root) {
    std::vector<std::string> lines;
    walk(root, [&](const Placed& placed) {
        const std::string said = placed.node->description();
        if (said.starts_with("text ")) lines.push_back(said.substr(6, said.size() - 7));
    });
    return lines;
}

TEST(Paragraph, BreaksWhereTheLanguageDoes) {
    const Font font = hanken(14);
    const double height = metrics(font).lineHeight;
    const auto widthOf = [&](const char* text) { return advance(font, QString::fromUtf8(text)); };
    struct Case {
        const char* text;
        double room;
        std::vector<std::string> lines;
    };
    for (const Case& each : {
             Case{"one two three", infinite, {"one two three"}},
             Case{"one two three", widthOf("one two three"), {"one two three"}},
             Case{"one two three", widthOf("one two three") - 1, {"one two", "three"}},
             Case{"one two three", widthOf("one two") - 1, {"one", "two", "three"}},
             Case{"one unbreakable", widthOf("one"), {"one", "unbreakable"}},
             Case{"24-hour strip", widthOf("24-hour"), {"24-hour", "strip"}},
             Case{"東京都港区", widthOf("東京都") + 1, {"東京都", "港区"}},
             Case{"", 100, {""}},
         }) {
        const View view = paragraph(each.text).font(font).frame(
            {.width = each.room == infinite ? std::nullopt : std::optional(each.room)});
        const Placed placed = layOut(view, environment);
        EXPECT_EQ(linesOf(placed), each.lines) << each.text;
        EXPECT_EQ(placed.rect.height(), height * static_cast<double>(each.lines.size()));
        walk(placed, [&](const Placed& part) {
            EXPECT_LE(part.rect.right(), placed.rect.right() + 0.02) << each.text;
        });
    }
}

}  // namespace
}  // namespace kit
