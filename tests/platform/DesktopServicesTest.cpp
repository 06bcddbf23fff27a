#include <gtest/gtest.h>

#include <QClipboard>
#include <QEnterEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QWindow>

#include "platform/ClipboardPasteboard.h"
#include "platform/PointerPresence.h"
#include "platform/linux/CanberraFeedback.h"

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace noonward::test {
namespace {

// While it lives no leak counts: for libraries that are unloaded without having freed all.
class OthersMayLeak {
 public:
#ifdef __SANITIZE_ADDRESS__
    OthersMayLeak() {
        __lsan_disable();
    }
    ~OthersMayLeak() {
        __lsan_enable();
    }
#else
    OthersMayLeak() {}  // NOLINT(modernize-use-equals-default): else its variable is unused
#endif
    OthersMayLeak(const OthersMayLeak&) = delete;
    OthersMayLeak& operator=(const OthersMayLeak&) = delete;
};

TEST(ClipboardPasteboardTest, HoldsOneKindOfContentsAtATime) {
    ClipboardPasteboard pasteboard;
    const QClipboard& clipboard = *QGuiApplication::clipboard();
    const QByteArray picture("\x89PNG\r\n\x1a\n\0rest", 13);
    for (int round = 0; round < 2; ++round) {
        pasteboard.setText("Zürich — 9:30");
        EXPECT_EQ(clipboard.text().toStdString(), "Zürich — 9:30");
        EXPECT_FALSE(clipboard.mimeData()->hasFormat("image/png"));
        pasteboard.setPng(picture);
        EXPECT_EQ(clipboard.mimeData()->data("image/png"), picture);
        EXPECT_EQ(clipboard.mimeData()->formats(), QStringList{"image/png"});
    }
}

// That a window is entered proves nothing, but out of another one of ours.
TEST(PointerPresenceTest, IsInsideFromMotionToLeave) {
    QWindow cap;
    QWindow panel;
    PointerPresence presence;
    const auto send = [](QWindow& to, QEvent::Type type) {
        QEnterEvent enter({}, {}, {});
        QMouseEvent move(QEvent::MouseMove, {}, {}, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QEvent other(type);
        QEvent& event = type == QEvent::Enter       ? static_cast<QEvent&>(enter)
                        : type == QEvent::MouseMove ? static_cast<QEvent&>(move)
                                                    : other;
        QCoreApplication::sendEvent(&to, &event);
    };
    struct Step {
        QWindow* window;
        QEvent::Type type;
        bool inside;
    };
    EXPECT_FALSE(presence.inside());
    for (const Step& step : {Step{&cap, QEvent::Enter, false}, Step{&cap, QEvent::MouseMove, true},
                             Step{&cap, QEvent::Leave, false}, Step{&panel, QEvent::Enter, false},
                             Step{&cap, QEvent::MouseMove, true}, Step{&panel, QEvent::Enter, true},
                             Step{&cap, QEvent::Leave, true}, Step{&panel, QEvent::Hide, false}}) {
        send(*step.window, step.type);
        EXPECT_EQ(presence.inside(), step.inside) << step.type;
    }
    presence.handOver();
    send(cap, QEvent::Enter);
    EXPECT_TRUE(presence.inside());
}

// There is no sound card here, nor can a test hear: but nothing may be said of that.
TEST(CanberraFeedbackTest, IsSilentOnStandardErrorWhateverIsMissing) {
    const OthersMayLeak soundLibraries;
    testing::internal::CaptureStderr();
    {
        CanberraFeedback feedback;
        feedback.levelChange();
        for (const double volume : {0.25, 0.25, 0.0, -1.0, 7.0})
            feedback.click(volume);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace noonward::test
