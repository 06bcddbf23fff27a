#pragma once

namespace noonward {

/// Runs the program and returns its exit status. With one of the picture variables set it renders
/// pictures and returns at once; that needs no display.
int run(int argc, char** argv);

}  // namespace noonward
