#pragma once

#include <QKeyEvent>
#include <QWidget>
#include <map>
#include <string>
#include <utility>

#include "fakes/FakeFeedback.h"
#include "fakes/FakeHotKeys.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/FakeMainQueue.h"
#include "fakes/FakePasteboard.h"
#include "fakes/FakePointer.h"
#include "fakes/FakeScreens.h"
#include "fakes/FakeUpdater.h"
#include "fakes/FakeZoneChanges.h"
#include "platform/Appearance.h"
#include "platform/ClockChanges.h"
#include "platform/Desktop.h"
#include "platform/Keyboard.h"
#include "platform/PressesElsewhere.h"
#include "platform/Session.h"
#include "platform/WindowSystem.h"

namespace noonward::test {

/// Windows that nobody arranges, all translucent.
class FakeWindowSystem final : public WindowSystem {
 public:
    Translucency translucency() const override { return Translucency::clear; }
    void adopt(QWidget& window, Level) override {
        window.setWindowFlags(Qt::FramelessWindowHint | Qt::Tool);
        window.winId();
    }
    void raise(QWidget&) override {}
    void setInputRegion(QWidget&, const QRegion&) override {}
    void setBlurBehind(QWidget&, const QRegion&) override {}
    void takeKeys(QWidget& window) override { keys = &window; }
    void giveKeysBack(QWidget&) override { keys = nullptr; }

    QWidget* keys = nullptr;  ///< the window that has them; null: another program
};

class FakeKeyboard final : public Keyboard {
 public:
    KeyPress read(const QKeyEvent& event) const override {
        const std::string typed = event.text().toStdString();
        return {.characters = typed, .charactersUnmodified = typed};
    }
};

class FakePresses final : public PressesElsewhere {
 public:
    Subscription onPress(std::function<void()> action) override {
        return presses_.subscribe(std::move(action));
    }
    void press() { presses_.announce(); }

 private:
    Announcer presses_;
};

class FakeSession final : public Session {
 public:
    Claim claim(std::function<void()>) override { return Claim::first; }
    Subscription onSignal(const std::string& member, std::function<void()> action) override {
        return signals_[member].subscribe(std::move(action));
    }
    Subscription onEnd(std::function<void()>) override { return {}; }
    void signal(const std::string& member) { signals_[member].announce(); }

 private:
    std::map<std::string, Announcer> signals_;
};

/// A desktop whose wishes change when a test says so.
class FakeAppearance final : public Appearance {
 public:
    bool dark() const override { return true; }
    bool animations() const override { return animations_; }
    Subscription onChange(std::function<void()> action) override {
        return changes_.subscribe(std::move(action));
    }
    void setAnimations(bool wanted) {
        animations_ = wanted;
        changes_.announce();
    }

 private:
    bool animations_ = true;
    Announcer changes_;
};

class FakeClockChanges final : public ClockChanges {
 public:
    Subscription onChange(std::function<void()> action) override {
        return changes_.subscribe(std::move(action));
    }
    void announce() { changes_.announce(); }

 private:
    Announcer changes_;
};

/// All the services of a desktop with one screen, 1920 × 1080, without a notch.
struct FakeDesktop {
    FakeDesktop() { screens.screens = {{.frame = {0, 0, 1920, 1080}}}; }

    Desktop services() {
        return {.queue = queue,
                .timer = queue,
                .screens = screens,
                .pointer = pointer,
                .windows = windows,
                .presses = presses,
                .keyboard = keyboard,
                .hotKeys = hotKeys,
                .session = session,
                .appearance = appearance,
                .pasteboard = pasteboard,
                .feedback = feedback,
                .loginItem = loginItem,
                .zoneChanges = zoneChanges,
                .clockChanges = clockChanges,
                .updater = hasUpdater ? &updater : nullptr,
                .installed = installed};
    }

    FakeMainQueue queue;
    FakeScreens screens;
    FakePointer pointer{queue};
    FakeWindowSystem windows;
    FakePresses presses;
    FakeKeyboard keyboard;
    FakeHotKeys hotKeys;
    FakeSession session;
    FakeAppearance appearance;
    FakePasteboard pasteboard;
    FakeFeedback feedback;
    FakeLoginItem loginItem;
    FakeZoneChanges zoneChanges;
    FakeClockChanges clockChanges;
    FakeUpdater updater;
    bool hasUpdater = false;
    bool installed = false;
};

}  // namespace noonward::test
