#include "app/KeyRouting.h"

#include <gtest/gtest.h>

#include <memory>

#include "app/ShellWorld.h"

namespace noonward::test {
namespace {

using Key = KeyPress::Key;

KeyPress key(Key which) {
    return {.key = which};
}
KeyPress typed(const char* characters) {
    return {.characters = characters, .charactersUnmodified = characters};
}
KeyPress shift(KeyPress press) {
    press.shift = true;
    return press;
}
// What Control makes of letters are control characters.
KeyPress command(KeyPress press) {
    press.command = true;
    press.characters = "\x03";
    return press;
}

enum class Shown { ribbon, typing, settings, welcome, settingsTyping };

// The panel in a state, with nine o'clock proposed; what happens is told in words.
struct Keys : ShellWorld {
    explicit Keys(Shown shown) {
        store.propose(9);
        store.flash = "Copied";
        ui.settingsShown = shown == Shown::settings || shown == Shown::settingsTyping;
        ui.welcomeShown = shown == Shown::welcome;
        if (shown == Shown::typing || shown == Shown::settingsTyping) store.startTyping("8");
        ui.onUpdates = [this] { note("updates"); };
        before = *this->store.proposal();
        settingsBefore = ui.settingsShown();
        typingBefore = store.timeQuery();
    }

    void note(const std::string& word) { said += (said.empty() ? "" : ", ") + word; }
    std::function<void()> noting(const char* word) {
        return [this, word] { note(word); };
    }

    std::string handle(const KeyPress& press) {
        if (!routing.handleKey(press)) note("passes");
        if (store.dayOffset() != 0) note("day " + std::to_string(store.dayOffset()));
        if (!store.proposal()) {
            note("nothing proposed");
        } else if (store.proposal() != before && store.proposalIsFairest()) {
            note("fairest");
        } else if (store.proposal() != before) {
            const auto moved = std::chrono::duration_cast<minutes>(*store.proposal() - before);
            note("moved " + std::to_string(moved.count()));
        }
        if (store.timeQuery() != typingBefore) note("typing " + store.timeQuery().value_or("no"));
        if (ui.settingsShown() != settingsBefore) note(settingsBefore ? "ribbon" : "settings");
        if (store.format() != HourFormat::h24) note(std::string(rawValue(store.format())));
        if (!store.flash()) note("no message");
        if (store.duration() != 60) note("length " + std::to_string(store.duration()));
        return said;
    }

    std::string said;
    Instant before;
    bool settingsBefore;
    std::optional<std::string> typingBefore;
    KeyRouting routing{store,
                       ui,
                       queue,
                       {.closePanel = noting("close"),
                        .layoutPanel = noting("layout"),
                        .copyText = noting("text"),
                        .copyPicture = noting("picture"),
                        .terminate = noting("quit"),
                        .caretToEnd = noting("caret")}};
};

TEST(KeyRouting, FollowsTheTable) {
    struct Case {
        Shown shown;
        KeyPress press;
        const char* effect;
    };
    const std::vector<Case> cases = {
        // Where something else is shown, text fields get what they need.
        {Shown::welcome, key(Key::escape), "close"},
        {Shown::welcome, command(typed("w")), "passes"},
        {Shown::welcome, typed("7"), "passes"},
        {Shown::welcome, typed("\r"), "passes"},
        {Shown::typing, key(Key::escape), "moved 60, typing no"},
        {Shown::typing, typed("7"), "passes"},
        {Shown::typing, typed("c"), "passes"},
        {Shown::typing, key(Key::leftArrow), "passes"},
        {Shown::typing, command(typed("w")), "passes"},
        {Shown::typing, command(typed("c")), "passes"},
        {Shown::settingsTyping, key(Key::escape), "moved 60, typing no"},
        {Shown::settings, key(Key::escape), "ribbon"},
        {Shown::settings, command(typed("w")), "close"},
        {Shown::settings, typed("w"), "passes"},
        {Shown::settings, command(shift(typed("W"))), "passes"},
        {Shown::settings, command(typed("q")), "passes"},
        {Shown::settings, typed("u"), "passes"},
        // With Command exactly these.
        {Shown::ribbon, command(typed("w")), "close"},
        {Shown::ribbon, command(typed("q")), "quit"},
        {Shown::ribbon, command(typed("c")), "text"},
        {Shown::ribbon, command(shift(typed("C"))), "passes"},
        {Shown::ribbon, command(typed("l")), "passes"},
        {Shown::ribbon, command(typed("7")), "passes"},
        {Shown::ribbon, command(key(Key::rightArrow)), "passes"},
        {Shown::ribbon, command(key(Key::escape)), "passes"},
        // Arrows, Escape, and what begins a time.
        {Shown::ribbon, key(Key::rightArrow), "moved 5"},
        {Shown::ribbon, shift(key(Key::rightArrow)), "moved 60"},
        {Shown::ribbon, key(Key::leftArrow), "moved -5"},
        {Shown::ribbon, shift(key(Key::leftArrow)), "moved -60"},
        {Shown::ribbon, key(Key::escape), "close"},
        {Shown::ribbon, typed("7"), "moved -120, typing 7"},
        {Shown::ribbon, typed("½"), "typing ½"},
        {Shown::ribbon, typed("12"), "passes"},
        {Shown::ribbon, {.characters = "", .charactersUnmodified = "7"}, "passes"},
        {Shown::ribbon, {.characters = "7", .charactersUnmodified = "é"}, "moved -120, typing 7"},
        // Letters; capitals act as theirs.
        {Shown::ribbon, typed("h"), "moved -60"},
        {Shown::ribbon, typed("l"), "moved 60"},
        {Shown::ribbon, shift(typed("L")), "moved 60"},
        {Shown::ribbon, typed("f"), "fairest"},
        {Shown::ribbon, typed("n"), "nothing proposed"},
        {Shown::ribbon, typed("t"), "layout, 12h, no message"},
        {Shown::ribbon, typed("p"), "picture"},
        {Shown::ribbon, typed("y"), "picture"},
        {Shown::ribbon, typed("c"), "text"},
        {Shown::ribbon, shift(typed("C")), "text"},
        {Shown::ribbon, typed("s"), "settings"},
        {Shown::ribbon, typed("["), "day -1, moved -1440"},
        {Shown::ribbon, typed("]"), "day 1, moved 1440"},
        {Shown::ribbon, typed("d"), "length 15"},
        {Shown::ribbon, typed("u"), "updates"},
        {Shown::ribbon, typed("x"), "passes"},
        {Shown::ribbon, typed(""), "passes"},
        {Shown::ribbon, typed("\xC3"), "passes"},
        {Shown::ribbon, {.characters = "\x1B", .charactersUnmodified = "ł"}, "passes"},
    };
    for (const auto& [shown, press, effect] : cases) {
        Keys keys(shown);
        EXPECT_EQ(keys.handle(press), effect)
            << static_cast<int>(shown) << ' ' << static_cast<int>(press.key) << " \""
            << press.characters << "\" \"" << press.charactersUnmodified << '"';
    }
}

TEST(KeyRouting, PutsTheCaretBehindWhatWasTyped) {
    Keys keys(Shown::ribbon);
    keys.routing.handleKey(typed("7"));
    keys.advance(49);
    EXPECT_EQ(keys.said, "");
    keys.advance(1);
    EXPECT_EQ(keys.said, "caret");

    FakeMainQueue queue;
    auto gone = std::make_unique<KeyRouting>(keys.store, keys.ui, queue,
                                             KeyActions{.caretToEnd = [] { FAIL(); }});
    keys.store.finishTyping(false);
    gone->handleKey(typed("8"));
    gone.reset();
    queue.advance(milliseconds(100));
}

}  // namespace
}  // namespace noonward::test
