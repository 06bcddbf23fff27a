#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <string>
#include <vector>

#include "kit/ButtonKeys.h"
#include "kit/HostingWindow.h"
#include "kit/Stacks.h"
#include "kit/TextField.h"

namespace kit {
namespace {

// Two buttons, a field between them and one that Return presses; the first two change places.
struct KeyboardScene {
    View body() {
        const auto press = [this](const char* name) {
            return [this, name] { pressed.emplace_back(name); };
        };
        auto field = textField({.text = typed,
                                .placeholder = "City",
                                .onEdit = [this](const std::string& text) { typed = text; },
                                .focusRequests = focusRequests});
        return hstack({.spacing = 10},
                      {
                          forEach(
                              order, [](char name) { return name; },
                              [&](char name) {
                                  return box(20, 20).button(press(name == 'a' ? "a" : "b"),
                                                            PressKeys::space);
                              }),
                          when(hasField, [&] { return field; }),
                          box(20, 20).toggle(true, press("toggle")),
                          box(20, 20).button(press("pointer only")),
                          box(20, 20).button(press("default"), PressKeys::spaceAndReturn),
                      });
    }

    std::vector<char> order{'a', 'b'};
    bool hasField = true;
    unsigned focusRequests = 0;
    std::string typed;
    std::vector<std::string> pressed;
};

using Names = std::vector<std::string>;

TEST(Hosting, KeysReachEveryControl) {
    KeyboardScene scene;
    Window window([&] { return scene.body(); });
    const auto tab = [&] { window.key(Qt::Key_Tab, "\t"); };
    const auto space = [&] { window.key(Qt::Key_Space, " "); };
    for (int step = 0; step < 6; ++step) {
        tab();
        space();
    }
    EXPECT_EQ(scene.pressed, (Names{"a", "b", "toggle", "default", "a"}));
    EXPECT_EQ(scene.typed, " ");

    scene.pressed.clear();
    scene.order = {'b', 'a'};  // the focus goes with its button
    window.view.invalidate();
    window.view.refresh();
    space();
    tab();
    window.key(Qt::Key_Return, "\r");  // from the field as well
    tab();
    window.key(Qt::Key_Return, "\r");
    space();
    EXPECT_EQ(scene.pressed, (Names{"a", "default", "default", "toggle"}));
}

TEST(Hosting, TheFocusIsSeenAndOutlivesWhatHadIt) {
    KeyboardScene scene;
    Window window([&] { return scene.body(); });
    QApplication::processEvents();
    const QImage before = window.view.grab().toImage();
    window.key(Qt::Key_Tab, "\t");
    QApplication::processEvents();
    EXPECT_NE(window.view.grab().toImage(), before);
    // The pointer works through what shows the focus, and leaves the focus alone.
    QWidget* focused = QApplication::focusWidget();
    window.click({10, 10});
    EXPECT_EQ(scene.pressed, Names{"a"});
    EXPECT_EQ(QApplication::focusWidget(), focused);

    scene.order = {'b'};
    window.view.invalidate();
    window.view.refresh();
    window.key(Qt::Key_Return, "\r");
    EXPECT_EQ(scene.pressed.back(), "default");
}

TEST(Hosting, WhatTheLossOfTheFocusChangesWaitsForTheRebuild) {
    std::vector<int> shown{1, 2, 3};
    Window* host = nullptr;
    const auto left = [&](bool has) {
        if (has) return;
        host->animations.withAnimation(spring(0.3, 0.8), [&] {
            shown = {3};
            host->view.invalidate();
        });
    };
    const auto button = [&](int) { return box(20, 20).button([] {}, PressKeys::space, left); };
    Window window([&] {
        return hstack({}, {forEach(
                              shown, [](int n) { return n; }, button)});
    });
    host = &window;
    window.key(Qt::Key_Tab, "\t");
    shown = {2, 3};
    window.view.invalidate();
    EXPECT_EQ(window.view.fittingSize().width(), 20);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(window.view.findChildren<ButtonKeys*>().size(), 1);
}

TEST(Hosting, AFieldTakesTheFocusAndTheTextThatTheModelGivesIt) {
    KeyboardScene scene;
    Window window([&] { return scene.body(); });
    const auto rebuild = [&] {
        window.view.invalidate();
        window.view.refresh();
    };
    ++scene.focusRequests;
    rebuild();
    auto* edit = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(edit, nullptr);
    window.key(Qt::Key_K, "K");
    window.key(Qt::Key_Space, " ");
    EXPECT_EQ(scene.typed, "K ");
    scene.typed = "K";  // as a model does that trims
    rebuild();
    EXPECT_EQ(edit->text(), "K ");
    scene.typed.clear();
    rebuild();
    EXPECT_EQ(edit->text(), "");
    EXPECT_TRUE(edit->hasFocus());
}

}  // namespace
}  // namespace kit
