#pragma once

#include <QWidget>
#include <functional>

#include "kit/Placed.h"

namespace kit {

/// Takes the focus, and the Space key, for a button of a hosted tree, and shows that it has it. The
/// pointer still meets the tree.
class ButtonKeys final : public QWidget {
 public:
    ButtonKeys(Id button, QWidget& host);

    Id button() const { return button_; }

    std::function<void()> press;
    std::function<void(bool has)> focused;  ///< may be null

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
