#include "kit/Presentation.h"

#include <gtest/gtest.h>

#include <cmath>

#include "kit/Shapes.h"
#include "kit/Stacks.h"
#include "kit/Text.h"

namespace kit {
namespace {

const Environment environment{.font = systemFont(13), .colour = black};

// A box whose place, size and opacity follow one number.
View boxAt(double x) {
    return rectangle()
        .fill(black)
        .frame({.width = 10 + x, .height = 10})
        .opacity(x / 200)
        .offset(x, 0);
}

Placed placed(const View& view) {
    return layOut(zstack(topLeading, {view}), environment, {500, 100});
}

struct Seen {
    double left = 0;
    double width = 0;  // of the first rectangle
    double opacity = 0;
};

Seen seen(Presentation& presentation, double now) {
    const auto root = presentation.at(now);
    Seen result;
    walk(*root, [&](const Placed& node) {
        if (node.node->description() == "rectangle" && result.width == 0) {
            result.left = node.rect.left();
            result.width = node.rect.width();
        }
        if (node.node->description() == "opacity") result.opacity = node.node->numbers().at(0);
    });
    return result;
}

TEST(Curve, RunsFromRestToItsEnd) {
    struct Case {
        const char* name;
        Curve curve;
        double at, expected;
    };
    // The springs by the closed form of the damped oscillator, computed apart.
    const double w = 2 * M_PI / 0.4;
    const double wd = w * 0.6;
    const Case cases[] = {
        {"spring", spring(0.4, 0.8), 0.1,
         1 - std::exp(-0.8 * w * 0.1) * (std::cos(wd * 0.1) + 0.8 / 0.6 * std::sin(wd * 0.1))},
        {"spring overshoots", spring(0.3, 0.5), 0.1732, 1.1630},
        {"critical", spring(0.3, 1), 0.15, 1 - std::exp(-M_PI) * (1 + M_PI)},
        {"ease-in, half way", easeIn(0.1), 0.05, 0.3153},
        {"ease-in, at the end", easeIn(0.1), 0.1, 1},
        {"before it begins", easeIn(0.1), -1, 0},
        {"long after", spring(0.3, 0.5), 60, 1},
    };
    for (const Case& c : cases) {
        EXPECT_NEAR(c.curve.progress(c.at), c.expected, 5e-4) << c.name;
        EXPECT_NEAR(c.curve.progress(1e-6), 0, 1e-4) << c.name << ": starts at rest";
        double most = 1;
        for (int step = 0; step < 1000; ++step)
            most = std::max(most, c.curve.progress(step / 1000.0));
        EXPECT_NEAR(c.curve.overshoot(), most - 1, 1e-3) << c.name;
        EXPECT_NEAR(c.curve.progress(c.curve.length() - 1e-9), 1, 2e-3) << c.name << ": no jump";
    }
}

TEST(Presentation, NeitherPlaceNorSpeedJumpsWhenInterrupted) {
    const Curve curves[] = {spring(0.3, 0.58), spring(0.26, 0.5), easeIn(0.1), spring(0.3, 0.86)};
    for (const Curve& first : curves) {
        for (const Curve& second : curves) {
            Presentation presentation;
            presentation.show(placed(boxAt(0)), std::nullopt, 0);
            presentation.show(placed(boxAt(100)), first, 0);
            constexpr double interrupted = 0.06;
            constexpr double step = 1e-5;
            const Seen earlier = seen(presentation, interrupted - step);
            const Seen before = seen(presentation, interrupted);
            presentation.show(placed(boxAt(20)), second, interrupted);
            const Seen after = seen(presentation, interrupted);
            const Seen later = seen(presentation, interrupted + step);

            EXPECT_NEAR(after.left, before.left, 1e-9);
            EXPECT_NEAR(after.width, before.width, 1e-9);
            EXPECT_NEAR(after.opacity, before.opacity, 1e-9);
            const double speed = (before.left - earlier.left) / step;
            EXPECT_GT(speed, 100) << "interrupted under way";
            EXPECT_NEAR((later.left - after.left) / step, speed, speed * 0.02);

            const Seen end = seen(presentation, 10);
            EXPECT_EQ(end.left, 20);
            EXPECT_EQ(end.width, 30);
            EXPECT_EQ(end.opacity, 0.1);
            EXPECT_FALSE(presentation.moving());
        }
    }
}

TEST(Presentation, WhatChangesWithoutAnimationJumpsAndTheRestGlidesOn) {
    const auto two = [](double first, double second) {
        return zstack(topLeading, {boxAt(first), View(rectangle().fill(white)).offset(second, 0)});
    };
    Presentation presentation;
    presentation.show(placed(two(0, 0)), std::nullopt, 0);
    presentation.show(placed(two(100, 0)), spring(0.4, 0.8), 0);
    const double before = seen(presentation, 0.1).width;
    presentation.show(placed(two(100, 50)), std::nullopt, 0.1);
    EXPECT_EQ(seen(presentation, 0.1).width, before);
    EXPECT_NE(dump(*presentation.at(0.1)).find("rectangle [50 0"), std::string::npos);

    presentation.show(placed(two(30, 50)), std::nullopt, 0.1);
    EXPECT_EQ(seen(presentation, 0.1).left, 30);

    // Of one view too: it is resized while it fades in.
    const auto fading = [](double width, double opacity) {
        return rectangle().fill(black).frame({.width = width, .height = 10}).opacity(opacity);
    };
    presentation.show(placed(fading(10, 0)), std::nullopt, 1);
    presentation.show(placed(fading(10, 1)), spring(0.4, 0.8), 1);
    const double opacity = seen(presentation, 1.1).opacity;
    presentation.show(placed(fading(90, 1)), std::nullopt, 1.1);
    EXPECT_EQ(seen(presentation, 1.1).width, 90);
    EXPECT_EQ(seen(presentation, 1.1).opacity, opacity);
}

TEST(Presentation, WhatComesStartsWhereItBelongs) {
    const auto with = [](bool second) {
        return zstack(topLeading, {boxAt(second ? 60 : 0), when(second, [] {
                                       return View(rectangle().fill(white)).offset(40, 0);
                                   })});
    };
    Presentation presentation;
    presentation.show(placed(with(false)), std::nullopt, 0);
    presentation.show(placed(with(true)), spring(0.4, 0.8), 0);
    EXPECT_NE(dump(*presentation.at(0.05)).find("rectangle [40 0"), std::string::npos);
    EXPECT_LT(seen(presentation, 0.05).width, 60);
}

TEST(Presentation, OtherWordsHaveTheirRoomAtOnce) {
    Presentation presentation;
    presentation.show(placed(text("5").offset(0, 0)), std::nullopt, 0);
    presentation.show(placed(text("a longer one").offset(30, 0)), spring(10, 1), 0);
    const auto frame = presentation.at(0.1);
    const Placed& words = frame->children.at(0).children.at(0);
    EXPECT_EQ(words.rect.width(), presentation.target().children.at(0).rect.width());
    EXPECT_LT(words.rect.left(), 30);
}

TEST(Presentation, EveryFrameOfAnOvershootIsALayout) {
    Presentation presentation;
    presentation.show(placed(boxAt(150)), std::nullopt, 0);
    presentation.show(placed(boxAt(-10)), spring(0.3, 0.3), 0);
    for (int frame = 0; frame < 120; ++frame) {
        const Seen now = seen(presentation, frame / 60.0);
        EXPECT_GE(now.opacity, 0);
        EXPECT_LE(now.opacity, 1);
        EXPECT_GE(now.width, 0);
    }
}

}  // namespace
}  // namespace kit
