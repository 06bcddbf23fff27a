#pragma once

#include <QElapsedTimer>
#include <QObject>

namespace noonward {

/// Whether the pointer is in one of this program's windows, by what they are told themselves: it is
/// from when it moves or presses in one until it leaves it. That one is entered proves nothing,
/// unless the pointer comes out of another of them. For desktops that tell no more.
class PointerPresence final : public QObject {
 public:
    PointerPresence();
    bool inside() const { return window_ != nullptr; }
    /// The pointer has left a window of the program's that is none of Qt's for another window: the
    /// one that is entered at once has it.
    void handOver() { handedOver_.start(); }

 private:
    bool eventFilter(QObject* receiver, QEvent* event) override;

    bool isEntered() const;

    QElapsedTimer handedOver_;
    const QObject* window_ = nullptr;  // the one it is in; never followed
};

}  // namespace noonward
