#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace noonward {

/// Keeps a listener attached to an Announcer for as long as it lives; safe to outlive it.
class Subscription {
 public:
    Subscription() = default;
    explicit Subscription(std::function<void()> cancel) : cancel_(std::move(cancel)) {}
    Subscription(Subscription&& other) noexcept : cancel_(std::exchange(other.cancel_, nullptr)) {}
    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            reset();
            cancel_ = std::exchange(other.cancel_, nullptr);
        }
        return *this;
    }
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    ~Subscription() { reset(); }

    void reset() {
        if (auto cancel = std::exchange(cancel_, nullptr)) cancel();
    }

 private:
    std::function<void()> cancel_;
};

/// Tells its listeners that something of its owner has changed. Main thread only.
/// Listeners may subscribe and unsubscribe while being told.
class Announcer {
 public:
    Announcer() : listeners_(std::make_shared<Listeners>()) {}
    Announcer(const Announcer&) = delete;
    Announcer& operator=(const Announcer&) = delete;

    [[nodiscard]] Subscription subscribe(std::function<void()> listener) {
        const std::uint64_t key = listeners_->next++;
        listeners_->byKey.emplace(key, std::make_shared<Listener>(std::move(listener)));
        return Subscription([weak = std::weak_ptr<Listeners>(listeners_), key] {
            if (auto listeners = weak.lock()) listeners->byKey.erase(key);
        });
    }

    void announce() const {
        const auto listeners = listeners_;  // a listener may destroy the owner
        for (std::uint64_t key = 0;;) {
            const auto found = listeners->byKey.lower_bound(key);
            if (found == listeners->byKey.end()) return;
            key = found->first + 1;
            const auto listener = found->second;  // held: it may unsubscribe itself
            (*listener)();
        }
    }

 private:
    using Listener = std::function<void()>;
    struct Listeners {
        std::uint64_t next = 0;
        std::map<std::uint64_t, std::shared_ptr<Listener>> byKey;
    };
    std::shared_ptr<Listeners> listeners_;
};

/// A value whose change is announced through its owner's Announcer. Read it as `field()`.
/// Setting it to an equal value announces nothing.
template <typename T>
class Published {
 public:
    explicit Published(Announcer& owner, T initial = T())
        : owner_(owner), value_(std::move(initial)) {}
    Published(const Published&) = delete;
    Published& operator=(const Published&) = delete;

    const T& operator()() const { return value_; }

    Published& operator=(T value) {
        if (!(value_ == value)) {
            value_ = std::move(value);
            owner_.announce();
        }
        return *this;
    }

 private:
    Announcer& owner_;
    T value_;
};

/// Runs `action` whenever `select()` has changed since it was last looked at, asked at each
/// announcement of `source`. The value current at the call does not count as a change.
template <typename Select>
[[nodiscard]] Subscription whenChanged(Announcer& source, Select select,
                                       std::function<void()> action) {
    return source.subscribe([select, action = std::move(action), last = select()]() mutable {
        auto current = select();
        if (current == last) return;
        last = std::move(current);
        action();
    });
}

}  // namespace noonward
