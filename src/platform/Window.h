#pragma once

#include <QRectF>

namespace noonward {

/// A borderless window above all others, on every workspace, that never makes the program the
/// active one. Frames are in desktop points, y growing downwards.
class Window {
 public:
    virtual ~Window() = default;
    virtual QRectF frame() const = 0;
    virtual void setFrame(const QRectF& frame) = 0;
    /// The ideal size, in points, of what it shows at this moment, pending changes included.
    virtual QSizeF fittingSize() = 0;
    virtual void orderFront() = 0;  ///< shows it; whoever has the keys keeps them
    virtual void makeKey() = 0;     ///< the keys come here until `orderOut`, which gives them back
    virtual void orderOut() = 0;
    virtual bool visible() const = 0;
};

}  // namespace noonward
