#pragma once

#include <QPainter>

#include "kit/Painting.h"
#include "kit/Shapes.h"

namespace kit {

// How controls show that the pointer, or the focus, is at them.

/// The outline of a control: that of the ground it stands on, or a rounded rectangle around one
/// that has none.
Shape outlineOf(const Placed& control);

/// A little larger than the control itself, on all sides, in the same coordinates.
QRectF attentionRect(const QRectF& control);

/// Paints a control as the pointer finds it: with a wash of its own text's colour under the
/// pointer, dimmed while it is held down.
void paintControl(const Placed& control, Painting& painting);

/// The ring around what has the focus: `outline` in the rectangle of the control.
void paintFocusRing(QPainter& painter, const Shape& outline, const QRectF& control);

/// The ring around a box that holds a date, where that has the focus.
void paintFocusedDate(const Placed& box, Painting& painting);

}  // namespace kit
