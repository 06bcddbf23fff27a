#pragma once

namespace noonward {

class Wayland;

/// Whether a program fills a screen at this moment (wlr-foreign-toplevel-management-unstable-v1);
/// false where the compositor does not tell. Asked anew each time: to be told of every change of
/// every window would wake the computer all day.
bool isScreenFilled(const Wayland& wayland);

}  // namespace noonward
