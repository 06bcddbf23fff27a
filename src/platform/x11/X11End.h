#pragma once

namespace noonward {

/// Has the program end without a word when the X server goes: what must be kept is on disk by then.
/// A write to any other connection that breaks fails, and kills nothing. Before the first
/// connection.
void endQuietlyWithTheServer();

}  // namespace noonward
