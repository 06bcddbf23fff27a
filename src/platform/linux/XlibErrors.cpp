#include "platform/linux/XlibErrors.h"

#include <X11/Xlib.h>
#include <signal.h>

#include <cstdlib>

namespace noonward {

void endQuietlyWithTheServer() {
    // Whichever library notices first that the server is gone: Xlib would write to stderr.
    XSetIOErrorHandler([](Display*) -> int { std::_Exit(1); });
    // A request may be under way as the server goes: that it fails is enough.
    ::signal(SIGPIPE, SIG_IGN);
}

}  // namespace noonward
