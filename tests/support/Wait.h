#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>

namespace noonward::test {

/// Runs the event loop until `condition()` holds; false if it does not for a very long time.
template <typename Condition>
bool eventually(Condition condition) {
    const QDeadlineTimer patience(30'000);
    while (!condition()) {
        if (patience.hasExpired()) return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    return true;
}

}  // namespace noonward::test
