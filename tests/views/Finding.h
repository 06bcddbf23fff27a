#pragma once

#include <string>

#include "kit/Node.h"
#include "kit/Placed.h"

/// Looking for things to press in a laid-out view; null where there is none.
namespace noonward::test {

inline const kit::Placed* withTooltip(const kit::Placed& root, const std::string& tooltip) {
    return kit::find(root, [&](const kit::Placed& placed) {
        return placed.node->interaction() && placed.node->interaction()->tooltip == tooltip;
    });
}

inline const kit::Placed* pressable(const kit::Placed* within) {
    return within ? kit::find(*within,
                              [](const kit::Placed& placed) {
                                  return placed.node->interaction() &&
                                         placed.node->interaction()->press;
                              })
                  : nullptr;
}

/// The innermost button around a line of text.
inline const kit::Placed* buttonSaying(const kit::Placed& root, const std::string& words) {
    const kit::Placed* best = nullptr;
    kit::walk(root, [&](const kit::Placed& placed) {
        if (!placed.node->interaction() || !placed.node->interaction()->press) return;
        if (kit::dump(placed).find("text \"" + words + "\"") != std::string::npos) best = &placed;
    });
    return best;
}

}  // namespace noonward::test
