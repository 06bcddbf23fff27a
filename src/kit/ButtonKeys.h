#pragma once

#include <QMargins>
#include <QWidget>
#include <functional>

#include "kit/Placed.h"
#include "kit/Shapes.h"

namespace kit {

/// Takes the focus, and the Space key, for a button of a hosted tree, and shows that it has it. The
/// pointer still meets the tree.
class ButtonKeys final : public QWidget {
 public:
    ButtonKeys(Id button, QWidget& host);

    /// Room for the ring around the button, points.
    static constexpr QMargins around{3, 3, 3, 3};

    Id button() const { return button_; }

    std::function<void()> press;
    std::function<void(bool has)> focused;  ///< may be null
    Shape outline = rectangle();            ///< of the button

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    void tellFocus(bool has);

    const Id button_;
};

}  // namespace kit
