#include "kit/Group.h"

#include <map>
#include <utility>

#include "kit/Placed.h"

namespace kit {
namespace {

// Only a stack gives a group room; anywhere else its elements lie over each other.
class GroupNode final : public Node {
 public:
    explicit GroupNode(std::vector<Slot> elements) : elements_(std::move(elements)) {}

    const std::vector<Slot>& elements() const { return elements_; }

    QSizeF measure(const Proposal& proposal, const Environment& env) const override {
        QSizeF size(0, 0);
        for (const Slot& element : elements_) {
            size = size.expandedTo(element.view->measure(proposal, env));
        }
        return size;
    }
    void place(Placed& self) const override {
        for (const Slot& element : elements_)
            self.add(element.slot, element.view, self.rect);
    }
    std::string description() const override { return "group"; }

 private:
    std::vector<Slot> elements_;
};

// Slots of a stack are small numbers; those of a group's elements must lie apart from them.
std::uint64_t elementSlot(std::uint64_t key, std::uint64_t occurrence) {
    return (key + 1) * 0xD6E8FEB86659FD93ULL + occurrence;
}

class FormNode final : public Wrapper {
 public:
    FormNode(std::uint64_t which, View view) : Wrapper(std::move(view)), which_(which) {}
    void place(Placed& self) const override { self.add(which_, child(), self.rect); }
    std::string description() const override { return "form " + std::to_string(which_); }

 private:
    std::uint64_t which_;
};

}  // namespace

std::vector<Slot> flatten(const Views& children) {
    std::vector<Slot> slots;
    slots.reserve(children.size());
    for (std::size_t i = 0; i < children.size(); ++i) {
        if (!children[i]) continue;
        if (const auto* group = dynamic_cast<const GroupNode*>(children[i].node().get())) {
            for (const Slot& element : group->elements()) {
                slots.push_back({element.slot + i * 0xA0761D6478BD642FULL, element.view});
            }
        } else {
            slots.push_back({i, children[i]});
        }
    }
    return slots;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): its views are moved on.
View group(std::vector<std::pair<std::uint64_t, View>> keyed) {
    std::map<std::uint64_t, std::uint64_t> seen;
    std::vector<Slot> elements;
    for (auto& [key, view] : keyed) {
        const std::uint64_t occurrence = seen[key]++;
        if (view) elements.push_back({elementSlot(key, occurrence), std::move(view)});
    }
    return View(std::make_shared<GroupNode>(std::move(elements)));
}

View form(std::uint64_t which, View view) {
    return view ? View(std::make_shared<FormNode>(which, std::move(view))) : View();
}

}  // namespace kit
