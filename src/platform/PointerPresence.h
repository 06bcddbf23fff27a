#pragma once

#include <QObject>

namespace noonward {

/// Whether the pointer is in one of this program's windows, by what they are told themselves: it
/// is from when it enters one until it leaves it. For desktops that tell no more.
class PointerPresence final : public QObject {
 public:
    PointerPresence();
    bool inside() const { return window_ != nullptr; }

 private:
    bool eventFilter(QObject* receiver, QEvent* event) override;

    const QObject* window_ = nullptr;  // the one it is in; never followed
};

}  // namespace noonward
