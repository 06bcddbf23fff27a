#include "app/KeyRouting.h"

#include <chrono>
#include <string_view>
#include <utility>

#include "base/Unicode.h"
#include "model/Store.h"
#include "platform/MainQueue.h"
#include "views/NotchUI.h"

namespace noonward {
namespace {

using Key = KeyPress::Key;

// The typed query must have its field before the caret can go anywhere.
constexpr std::chrono::milliseconds untilTheFieldIsThere(50);

/// Which presses a binding is for.
class Trigger {
 public:
    // Implicit, so that the table below can be read.
    Trigger(Key key) : kind_(Kind::key), key_(key) {}
    Trigger(const char* letter) : Trigger(Kind::letter, letter) {}

    /// Command with exactly this: its capital is another key.
    static Trigger command(std::string_view text) { return {Kind::command, text}; }
    static Trigger numeral() { return {Kind::numeral, {}}; }

    bool matches(const KeyPress& press) const {
        switch (kind_) {
            case Kind::key:
                return press.key == key_;
            case Kind::letter:
                return unicode::lowercased(press.charactersUnmodified) == text_;
            case Kind::command:
                return press.command && press.charactersUnmodified == text_;
            case Kind::numeral:
                return unicode::isNumeral(press.characters);
        }
        return false;
    }

 private:
    enum class Kind { key, letter, command, numeral };
    Trigger(Kind kind, std::string_view text) : kind_(kind), text_(text) {}

    Kind kind_;
    Key key_ = Key::other;
    std::string_view text_;
};

}  // namespace

/// What the panel shows, in order of precedence; `commanded` is the ribbon with Command held.
enum class KeyRouting::Context { welcome, typing, settings, commanded, ribbon };

struct KeyRouting::Binding {
    Context context;
    Trigger trigger;
    void (*act)(KeyRouting& self, const KeyPress& press);
};

KeyRouting::KeyRouting(Store& store, NotchUI& ui, MainQueue& queue, KeyActions actions)
    : store_(store), ui_(ui), queue_(queue), actions_(std::move(actions)) {}

KeyRouting::Context KeyRouting::context(const KeyPress& press) const {
    if (ui_.welcomeShown()) return Context::welcome;
    if (store_.timeQuery()) return Context::typing;
    if (ui_.settingsShown()) return Context::settings;
    return press.command ? Context::commanded : Context::ribbon;
}

bool KeyRouting::handleKey(const KeyPress& key) {
    using Self = KeyRouting;
    using Press = KeyPress;
    using enum Context;
    const auto command = &Trigger::command;

    // The first that matches counts; in its context, what matches none goes on to the view.
    static const Binding bindings[] = {
        {welcome, Key::escape, [](Self& self, const Press&) { self.actions_.closePanel(); }},

        {typing, Key::escape, [](Self& self, const Press&) { self.store_.finishTyping(false); }},

        {settings, Key::escape, [](Self& self, const Press&) { self.ui_.settingsShown = false; }},
        {settings, command("w"), [](Self& self, const Press&) { self.actions_.closePanel(); }},

        {commanded, command("w"), [](Self& self, const Press&) { self.actions_.closePanel(); }},
        {commanded, command("q"), [](Self& self, const Press&) { self.actions_.terminate(); }},
        {commanded, command("c"), [](Self& self, const Press&) { self.actions_.copyText(); }},

        {ribbon, Key::rightArrow, [](Self& self, const Press& press) { self.step(press, 5); }},
        {ribbon, Key::leftArrow, [](Self& self, const Press& press) { self.step(press, -5); }},
        {ribbon, Key::escape, [](Self& self, const Press&) { self.actions_.closePanel(); }},
        {ribbon, Trigger::numeral(), [](Self& self, const Press& press) { self.type(press); }},
        {ribbon, "h", [](Self& self, const Press&) { self.store_.step(-60); }},
        {ribbon, "l", [](Self& self, const Press&) { self.store_.step(60); }},
        {ribbon, "f", [](Self& self, const Press&) { self.store_.jumpToFairest(); }},
        {ribbon, "n", [](Self& self, const Press&) { self.store_.backToNow(); }},
        {ribbon, "t", [](Self& self, const Press&) { self.switchFormat(); }},
        {ribbon, "p", [](Self& self, const Press&) { self.actions_.copyPicture(); }},
        {ribbon, "y", [](Self& self, const Press&) { self.actions_.copyPicture(); }},
        {ribbon, "c", [](Self& self, const Press&) { self.actions_.copyText(); }},
        {ribbon, "s", [](Self& self, const Press&) { self.ui_.settingsShown = true; }},
        {ribbon, "[", [](Self& self, const Press&) { self.store_.changeDay(-1); }},
        {ribbon, "]", [](Self& self, const Press&) { self.store_.changeDay(1); }},
        {ribbon, "d", [](Self& self, const Press&) { self.store_.cycleDuration(); }},
        {ribbon, "u", [](Self& self, const Press&) { self.ui_.onUpdates(); }},
    };

    const Context here = context(key);
    for (const Binding& binding : bindings) {
        if (binding.context != here || !binding.trigger.matches(key)) continue;
        binding.act(*this, key);
        return true;
    }
    return false;
}

void KeyRouting::step(const KeyPress& press, int byMinutes) {
    store_.step(press.shift ? byMinutes * 12 : byMinutes);
}

// A field that comes into the focus may select its text, as the desktop has it: the next digit
// would replace the first.
void KeyRouting::type(const KeyPress& press) {
    store_.startTyping(press.characters);
    queue_.after(untilTheFieldIsThere, lifetime_.weakly([this] { actions_.caretToEnd(); }));
}

void KeyRouting::switchFormat() {
    store_.format = next(store_.format());
    store_.flash = std::nullopt;
    actions_.layoutPanel();
}

}  // namespace noonward
