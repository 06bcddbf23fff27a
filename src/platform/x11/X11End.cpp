#include "platform/x11/X11End.h"

#include <X11/Xlib.h>
#include <signal.h>

#include <cstdlib>

namespace noonward {

void endQuietlyWithTheServer() {
    // If Xlib is the first to notice that the server is gone, it would write to stderr.
    XSetIOErrorHandler([](Display*) -> int { std::_Exit(1); });
    // A request may be under way as the server goes: that it fails is enough.
    ::signal(SIGPIPE, SIG_IGN);
}

}  // namespace noonward
