#pragma once

#include "views/theme/Palette.h"

class QStyle;

namespace noonward {

/// The style of the toolkit's own windows, menus and tooltips, whatever that of the desktop is.
QStyle* makeWidgetStyle();

/// Gives the toolkit's own windows and fields - menus, tooltips, selections of text - the colours
/// of a scheme and the program's font. Needs a QApplication.
void dressWidgets(Scheme scheme);

}  // namespace noonward
