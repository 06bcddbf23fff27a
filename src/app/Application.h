#pragma once

namespace noonward {

/// Runs the program under the name argv[0] and returns its exit status. Arguments are ignored. With
/// one of the picture variables set it renders pictures and returns at once; that needs no display.
int run(char** argv);

}  // namespace noonward
