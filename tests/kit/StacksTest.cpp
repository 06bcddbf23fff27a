#include "kit/Stacks.h"

#include <gtest/gtest.h>

#include "kit/Placed.h"
#include "kit/Shapes.h"

namespace kit {
namespace {

const Environment environment{.font = systemFont(13), .colour = black};

View box(double width, double height) {
    return rectangle().fill(black).frame({.width = width, .height = height});
}

// At least `least` wide, at most `most`.
View elastic(double least, double most) {
    return rectangle().fill(black).frame({.height = 10, .minWidth = least, .maxWidth = most});
}

std::string laidOut(const View& view, double width, double height) {
    return dump(layOut(view, environment, {width, height}));
}

std::vector<double> lefts(const Placed& stack) {
    std::vector<double> result;
    for (const Placed& child : stack.children)
        result.push_back(child.rect.left());
    return result;
}

std::vector<double> widths(const Placed& stack) {
    std::vector<double> result;
    for (const Placed& child : stack.children)
        result.push_back(child.rect.width());
    return result;
}

using Doubles = std::vector<double>;

TEST(Stacks, ShareWidthByPriorityAndFlexibility) {
    struct Case {
        const char* name;
        Views children;
        double room;
        Doubles expected;
    };
    const Case cases[] = {
        {"exact", {box(20, 10), box(30, 10)}, 56, {20, 30}},
        {"spacer takes the rest", {box(20, 10), spacer(), box(30, 10)}, 100, {20, 38, 30}},
        {"two spacers share", {spacer(), box(20, 10), spacer()}, 72, {20, 20, 20}},
        {"shapes share equally", {rectangle(), rectangle(), rectangle()}, 72, {20, 20, 20}},
        {"least flexible first", {elastic(10, 500), box(30, 10)}, 76, {40, 30}},
        {"priority first", {elastic(10, 60).priority(1), elastic(10, 60)}, 86, {60, 20}},
        {"lower priority keeps its least",
         {elastic(10, 500).priority(1), elastic(25, 60)},
         96,
         {65, 25}},
        {"too narrow overflows, never below the least",
         {elastic(40, 60), elastic(30, 60)},
         50,
         {40, 30}},
    };
    for (const Case& c : cases) {
        const Placed placed = layOut(hstack({.spacing = 6}, c.children), environment, {c.room, 10});
        EXPECT_EQ(widths(placed), c.expected) << c.name << "\n" << dump(placed);
    }
}

TEST(Stacks, AbsentChildrenTakeNoRoomAndNoSpacing) {
    const Placed row = layOut(
        hstack({.spacing = 6}, {View(), box(10, 10), View(), box(10, 10), View()}), environment);
    EXPECT_EQ(row.rect.size(), QSizeF(26, 10));
    EXPECT_EQ(lefts(row), (Doubles{0, 16}));
}

TEST(Stacks, PlaceColumnsAndLayers) {
    EXPECT_EQ(
        laidOut(vstack({.align = Horizontal::trailing, .spacing = 2}, {box(10, 5), box(30, 7)}), 30,
                14),
        "vstack [0 0 30 14]\n"
        "  frame [20 0 10 5]\n"
        "    rectangle [20 0 10 5]\n"
        "  frame [0 7 30 7]\n"
        "    rectangle [0 7 30 7]\n");
    EXPECT_EQ(laidOut(zstack(topLeading, {box(10, 5), box(4, 4).offset(3, -2)}), 10, 5),
              "zstack [0 0 10 5]\n"
              "  frame [0 0 10 5]\n"
              "    rectangle [0 0 10 5]\n"
              "  offset [0 0 4 4]\n"
              "    frame [3 -2 4 4]\n"
              "      rectangle [3 -2 4 4]\n");
}

TEST(Stacks, ModifiersAddUp) {
    EXPECT_EQ(laidOut(box(10, 10)
                          .padding({.horizontal = 3, .vertical = 1, .top = 4})
                          .frame({.minWidth = 40, .minHeight = 30, .alignment = trailing})
                          .background(rectangle()),
                      40, 30),
              "background [0 0 40 30]\n"
              "  rectangle [0 0 40 30]\n"
              "  frame [0 0 40 30]\n"
              "    padding [24 7 16 16]\n"
              "      frame [27 12 10 10]\n"
              "        rectangle [27 12 10 10]\n");
}

// Who a view is must not depend on whether its neighbours are there or where it has moved.
TEST(Identity, SurvivesAbsentNeighboursAndMoves) {
    const auto ids = [](const View& view) {
        std::vector<Id> result;
        for (const Placed& child : layOut(view, environment).children)
            result.push_back(child.id);
        return result;
    };
    const auto list = [](const std::vector<int>& keys) {
        return hstack(
            {}, {box(1, 1), forEach(
                                keys, [](int key) { return key; }, [](int) { return box(2, 2); })});
    };

    const auto both = ids(hstack({}, {box(1, 1), box(2, 2)}));
    const auto second = ids(hstack({}, {View(), box(2, 2)}));
    ASSERT_EQ(second.size(), 1U);
    EXPECT_EQ(second[0], both[1]);

    const auto before = ids(list({7, 8, 9}));
    const auto after = ids(list({9, 7, 8}));
    EXPECT_EQ(after, (std::vector<Id>{before[0], before[3], before[1], before[2]}));

    const auto twins = ids(list({7, 7}));
    EXPECT_EQ(twins[1], before[1]);
    EXPECT_NE(twins[1], twins[2]);

    const auto formId = [&](std::uint64_t which) {
        return layOut(form(which, box(1, 1)), environment).children.at(0).id;
    };
    EXPECT_NE(formId(0), formId(1));

    const View plain = box(5, 5);
    EXPECT_EQ(layOut(plain.overlay(View()), environment).children.at(0).id,
              layOut(plain.overlay(box(1, 1)), environment).children.at(0).id);
}

TEST(Hit, FindsWhatIsInFront) {
    int pressed = 0;
    const auto button = [&pressed](int which) {
        return box(20, 20).button([&pressed, which] { pressed = which; });
    };
    const Placed root =
        layOut(zstack(topLeading, {button(1), button(2).offset(10, 0)}), environment);
    const auto press = [&](double x, double y) {
        pressed = 0;
        const auto path = hit(root, {x, y}, [](const Placed& placed) {
            return placed.node->interaction() && placed.node->interaction()->press;
        });
        if (path.empty()) return 0;
        EXPECT_EQ(path.front(), &root);
        path.back()->node->interaction()->press();
        return pressed;
    };
    // The moved button answers where it is drawn only, to the half-open edge.
    EXPECT_EQ(press(5, 5), 1);
    EXPECT_EQ(press(15, 5), 2);
    EXPECT_EQ(press(29.9, 5), 2);
    EXPECT_EQ(press(30, 5), 0);
    EXPECT_EQ(press(5, 20), 0);
}

}  // namespace
}  // namespace kit
