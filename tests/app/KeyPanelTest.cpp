#include "app/KeyPanel.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>

#include "app/Render.h"
#include "kit/Animation.h"
#include "kit/Interaction.h"
#include "kit/Text.h"
#include "support/Wait.h"

namespace noonward::test {
namespace {

// A desktop that lets every window have the keys.
class WillingWindows final : public WindowSystem {
 public:
    Translucency translucency() const override { return Translucency::clear; }
    void adopt(QWidget& window, Level) override { window.winId(); }
    void raise(QWidget&) override {}
    void setInputRegion(QWidget&, const QRegion&) override {}
    void setBlurBehind(QWidget&, const QRegion&) override {}
    void takeKeys(QWidget& window) override { QApplication::setActiveWindow(&window); }
    void giveKeysBack(QWidget&) override {}
};

TEST(KeyPanel, LeavesTheFocusToThoseWhoAskForIt) {
    WillingWindows windows;
    kit::Animations animations;
    int presses = 0;
    KeyPanel panel(
        windows,
        std::make_unique<kit::FirstClickHostingView>(
            animations, rootEnvironment(),
            [&] { return kit::text("Choose").button([&] { ++presses; }, kit::PressKeys::space); }),
        {});
    panel.setFrame({{100, 100}, panel.fittingSize()});
    panel.orderFront();
    panel.makeKey();
    ASSERT_TRUE(eventually([&] { return panel.isActiveWindow(); }));
    const auto space = [] {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ");
        QApplication::sendEvent(QApplication::focusWidget(), &key);
    };
    EXPECT_EQ(QApplication::focusWidget(), &panel.content());
    space();
    EXPECT_EQ(presses, 0);

    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, "\t");
    QApplication::sendEvent(QApplication::focusWidget(), &tab);
    space();
    EXPECT_EQ(presses, 1);
    panel.orderOut();
    panel.orderFront();
    panel.makeKey();
    space();
    EXPECT_EQ(presses, 1) << "each showing begins without the focus on anything";
}

}  // namespace
}  // namespace noonward::test
