#pragma once

#include <set>
#include <vector>

#include "kit/Placed.h"

namespace kit {

// Moves what can be scrolled in a placed tree. Each asks for another position, which the next tree
// will have.

/// Whether it can be scrolled.
bool scrolls(const Placed& placed);

/// Scrolls it by so many points, down if they are positive, as far as it goes.
void scrollBy(const Placed& scrolled, double points);

/// Scrolls the node of that identity into sight, if there is one.
void scrollIntoSight(const Placed& root, Id id);

/// Scrolls what wants to be seen into sight, apart from what was there before, and takes its
/// identities into `shown`. What has appeared together is shown together.
void showAppeared(const Placed& root, std::set<Id>& shown);

/// Gives up positions that there is no room for any more: they must not come back when the content
/// grows.
void forgetLostPositions(const Placed& root);

/// The nodes from the root down to the one of that identity; empty without it.
std::vector<const Placed*> pathTo(const Placed& root, Id id);

}  // namespace kit
