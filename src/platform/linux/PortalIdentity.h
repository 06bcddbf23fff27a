#pragma once

#include <QDBusServiceWatcher>

#include "platform/linux/MessageBus.h"

namespace noonward {

/// Tells the desktop's portal which program this is (org.freedesktop.host.portal.Registry), as the
/// name of an installed desktop entry. Newer portals give global shortcuts to nobody else, and hear
/// it only before anything else is asked of them; older ones don't know the question.
class PortalIdentity {
 public:
    /// Comes before everything on the bus that asks the portal for something. The bus must outlive
    /// this object.
    explicit PortalIdentity(SessionBus& bus);

 private:
    void tell();

    SessionBus& bus_;
    QDBusServiceWatcher owner_;
};

}  // namespace noonward
