#pragma once

#include <vector>

#include "kit/Node.h"

namespace kit {

/// A child of a stack and the slot that identifies it.
struct Slot {
    std::uint64_t slot;
    View view;
};

/// The children that are there, groups replaced by their elements. Absent children keep their
/// slots; elements of a group are told apart by key, equal keys by occurrence.
std::vector<Slot> flatten(const Views& children);

}  // namespace kit
