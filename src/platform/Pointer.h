#pragma once

#include <QPointF>
#include <QRectF>
#include <functional>
#include <optional>

namespace noonward {

/// Where the pointer is, without looking all the time.
class Pointer {
 public:
    virtual ~Pointer() = default;

    /// In desktop points, y growing downwards; nothing where the desktop does not tell, which means
    /// that it is over none of this program's windows.
    virtual std::optional<QPointF> position() const = 0;

    /// Calls `entered` once, as soon as the pointer comes into `zone` (desktop points), or soon
    /// after this call if it is there already. Nothing of this is seen, and clicks go to what lies
    /// below. Costs nothing while waiting. A second call replaces the first.
    virtual void waitFor(const QRectF& zone, std::function<void()> entered) = 0;
    virtual void stopWaiting() = 0;
};

}  // namespace noonward
