#pragma once

#include <QObject>
#include <vector>

#include "platform/Screens.h"

class QScreen;

namespace noonward {

/// The monitors as Qt knows them. Qt knows neither cameras nor what the desktop keeps free: both
/// are left to who derives from this.
class QtScreens : public Screens {
 public:
    QtScreens();

    std::vector<Screen> all() const override;
    std::optional<Screen> main() const override;
    double statusBarThickness() const override { return 0; }
    [[nodiscard]] Subscription onChange(std::function<void()> action) override;

 protected:
    /// Enters the camera of a monitor, where its maker and model tell of one.
    virtual void addNotch(Screen&, const QScreen&) const {}

    /// Something has changed, or may have: listeners are told in the event loop's next turn, once,
    /// and only if a monitor or the status bar is different from when they were told last.
    void reconsider();

 private:
    struct State {
        std::vector<Screen> screens;  // the main one first
        double statusBar = 0;
        bool operator==(const State&) const = default;
    };

    Screen describe(const QScreen& screen) const;
    State state() const;
    void watch(QScreen& screen);
    void compare();

    QObject context_;
    Announcer changes_;
    std::optional<State> known_;  // since the first listener came
    bool pending_ = false;
};

}  // namespace noonward
