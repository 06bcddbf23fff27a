#include "platform/QtScreens.h"

#include <QGuiApplication>
#include <QMetaObject>
#include <QScreen>
#include <utility>

namespace noonward {

QtScreens::QtScreens() {
    const auto changed = [this] { reconsider(); };
    QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &context_, [this](QScreen* screen) {
        watch(*screen);
        reconsider();
    });
    QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, &context_, changed);
    QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, &context_, changed);
    for (QScreen* screen : QGuiApplication::screens())
        watch(*screen);
}

void QtScreens::watch(QScreen& screen) {
    const auto changed = [this] { reconsider(); };
    QObject::connect(&screen, &QScreen::geometryChanged, &context_, changed);
    // Upside down it is as large as before, and its camera somewhere else.
    QObject::connect(&screen, &QScreen::orientationChanged, &context_, changed);
}

std::vector<Screen> QtScreens::all() const {
    std::vector<Screen> result;
    for (const QScreen* screen : QGuiApplication::screens())
        result.push_back(describe(*screen));
    return result;
}

std::optional<Screen> QtScreens::main() const {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? std::optional(describe(*screen)) : std::nullopt;
}

Screen QtScreens::describe(const QScreen& screen) const {
    Screen result{.frame = screen.geometry()};
    addNotch(result, screen);
    return result;
}

Subscription QtScreens::onChange(std::function<void()> action) {
    if (!known_) known_ = state();
    return changes_.subscribe(std::move(action));
}

QtScreens::State QtScreens::state() const {
    State result{.statusBar = statusBarThickness()};
    if (const auto primary = main()) result.screens.push_back(*primary);
    for (const Screen& screen : all())
        result.screens.push_back(screen);
    return result;
}

void QtScreens::reconsider() {
    if (!known_ || std::exchange(pending_, true)) return;
    QMetaObject::invokeMethod(
        &context_, [this] { compare(); }, Qt::QueuedConnection);
}

void QtScreens::compare() {
    pending_ = false;
    State current = state();
    if (current == known_) return;
    known_ = std::move(current);
    changes_.announce();
}

}  // namespace noonward
