#pragma once

namespace noonward {

/// Whether the program is started when the user logs in.
class LoginItem {
 public:
    virtual ~LoginItem() = default;
    /// As the desktop has it now, whoever set it.
    [[nodiscard]] virtual bool enabled() const = 0;
    /// A refusal changes nothing and is not reported: `enabled` tells what came of it.
    virtual void set(bool on) = 0;
};

}  // namespace noonward
