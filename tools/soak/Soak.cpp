// What a hurried user, a cat on the keyboard and badly written programs do to the program for as
// long as one likes: soak MINUTES [SEED [PROGRAM]]. Prints how much memory it keeps, minute by
// minute.

#include <cstdio>
#include <cstdlib>
#include <random>

#include "live/Desktop.h"
#include "support/Memory.h"

namespace noonward::test {
namespace {

using namespace std::chrono_literals;
using Minutes = std::chrono::duration<double, std::ratio<60>>;

struct Wish {
    Minutes time{1};
    unsigned seed = 1;
    std::string program = NOONWARD_PROGRAM;
};
Wish wish;

class Soak : public Desktop {
 protected:
    void SetUp() override {
        programFile = wish.program;
        showOther({60, 600, 300, 200});
        launch();
    }

    void act() {
        // Whoever quits every minute cannot say what an hour costs: mostly, "Quit" is left out.
        if (menu() && !oneIn(20)) hand.key("Escape");
        struct Kind {
            int weight;
            void (Soak::*act)();
        };
        constexpr Kind kinds[] = {
            {200, &Soak::strike},    {140, &Soak::clickInPanel}, {120, &Soak::point},
            {80, &Soak::strikeAny},  {60, &Soak::scroll},        {60, &Soak::dragInPanel},
            {60, &Soak::write},      {40, &Soak::comeAndGo},     {40, &Soak::open},
            {20, &Soak::callByBus},  {12, &Soak::startAgain},    {12, &Soak::clickElsewhere},
            {10, &Soak::takePaste},  {6, &Soak::changeMonitors}, {6, &Soak::editFile},
            {4, &Soak::sleepAWhile},
        };
        int sum = 0;
        for (const Kind& kind : kinds)
            sum += kind.weight;
        int chosen = number(1, sum);
        const Kind* kind = kinds;
        while ((chosen -= kind->weight) > 0)
            ++kind;
        (this->*kind->act)();
        ++acts;
        // Mostly hurried; now and then long enough for what comes later to come.
        const int pause = oneIn(30) ? number(200, 1500) : number(0, 30);
        std::this_thread::sleep_for(std::chrono::milliseconds(pause));
        if (program->status()) startAfterEnd();
    }

    /// Everything put away, and the program still answers.
    void calm() {
        removeMonitors();
        moveAway();
        see("a clear screen", [this] {
            if (program->status()) startAfterEnd();
            if (sight.windows().empty()) return true;
            hand.clickAt(nowhere);
            hand.key("Escape");
            std::this_thread::sleep_for(100ms);
            return false;
        });
        toggleUntil("the panel", [this] { return isPanelSeen(); });
        toggleUntil("the panel gone", [this] { return sight.windows().empty(); });
    }

    int acts = 0;
    int starts = 1;

 private:
    // Of what was done before, a slow program may have something yet to do, such as to end.
    template <typename Condition>
    void toggleUntil(const std::string& what, Condition condition) {
        for (int tries = 0; tries < 4; ++tries) {
            if (program->status()) startAfterEnd();
            hand.key("Control+Alt+t");
            const bool isMissing = staysFor(4s, [&] { return !condition(); });
            if (!isMissing) return;
        }
        see(what, condition);
    }

    int number(int least, int most) { return std::uniform_int_distribution(least, most)(dice_); }
    bool oneIn(int count) { return number(1, count) == 1; }
    template <typename Range>
    const auto& oneOf(const Range& range) {
        return *(std::begin(range) + number(0, static_cast<int>(std::size(range)) - 1));
    }

    // The user may have quit after all.
    void startAfterEnd(std::unique_ptr<Process> next = nullptr) {
        EXPECT_EQ(exitStatus(), 0);
        moveAway();
        removeMonitors();
        program = next ? std::move(next) : startCopy();
        seeStarted();
        ++starts;
    }

    QPoint placeIn(const QRect& frame) {
        return {number(frame.left(), frame.right()), number(frame.top(), frame.bottom())};
    }
    QPoint placeInPanel() {
        const auto windows = sight.windows();
        const QPoint place = windows.empty() || oneIn(20) ? placeIn({0, 0, 1600, 900})
                                                          : placeIn(oneOf(windows).frame);
        const QRect quit(left + 740, top + 170, 60, 45);
        return quit.contains(place) && areSettingsSeen() ? QPoint(left + 10, top + 300) : place;
    }

    void strike() {
        static const std::string_view keys[] = {"c",           "e",          "p",
                                                "f",           "n",          "t",
                                                "d",           "s",          "u",
                                                "[",           "]",          "Left",
                                                "Right",       "Shift+Left", "Up",
                                                "Down",        "Tab",        "Shift+Tab",
                                                " ",           "Return",     "BackSpace",
                                                "Delete",      "Home",       "End",
                                                "h",           "l",          "Control+a",
                                                "Control+c",   "Control+v",  "Control+x",
                                                "Control+z",   "Shift+End",  "Control+Shift+c",
                                                "Control+Left"};
        const bool hasQuit = areSettingsSeen();
        for (int i = number(1, 8); i > 0; --i) {
            const std::string_view key = oneOf(keys);
            if (key != " " || !hasQuit) hand.key(key);
        }
        if (oneIn(10)) hand.key(oneIn(2) ? "Escape" : "Control+w");
    }
    // Whatever is on the keyboard, but what ends the program.
    void strikeAny() {
        const auto quit = hand.codeOf("q");
        for (int i = number(1, 5); i > 0; --i) {
            const auto code = static_cast<std::uint8_t>(number(9, 127));
            if (code == quit) continue;
            static const std::string_view held[] = {"Shift", "Control", "Alt"};
            const std::uint8_t modifier = hand.codeOf(oneOf(held));
            const bool isHeld = oneIn(3);
            if (isHeld) hand.pressKey(modifier);
            hand.pressKey(code);
            hand.releaseKey(code);
            if (isHeld) hand.releaseKey(modifier);
        }
    }
    void write() {
        static const std::string_view texts[] = {
            "7:30am NY tue", "8:20",  "noon london",  "25:99 xyz", "23:59 fri", "springfield",
            "sao paulo",     "k",     "9pm tomorrow", "0",         "12:00",     "2026-02-30",
            "          ",    "\"\\<", "3 3 3 3 3 3",  "::::",      "am pm am",  "1999-12-31"};
        std::string text(oneOf(texts));
        if (oneIn(3)) {
            for (int i = number(1, 40); i > 0; --i)
                text += static_cast<char>(number(' ', '~'));
        }
        std::erase_if(text, [](char letter) { return letter == 'q'; });
        hand.type(text);
        static const std::string_view ends[] = {"Return", "Escape", "Tab", "BackSpace"};
        if (!oneIn(3)) hand.key(oneOf(ends));
    }

    void point() {
        for (int i = number(1, 6); i > 0; --i)
            hand.movePointer(placeInPanel());
    }
    void clickInPanel() {
        hand.clickAt(placeInPanel(), oneIn(12) ? 3 : oneIn(30) ? 2 : 1);
        if (oneIn(6)) hand.click(1);
    }
    void dragInPanel() { hand.drag(placeInPanel(), placeInPanel()); }
    void scroll() {
        hand.movePointer(placeInPanel());
        for (int i = number(1, 9); i > 0; --i)
            hand.click(static_cast<std::uint8_t>(number(4, 7)));
    }
    void comeAndGo() {
        hand.movePointer(notch);
        std::this_thread::sleep_for(std::chrono::milliseconds(number(0, 500)));
        if (oneIn(2)) hand.click(oneIn(5) ? 3 : 1);
        if (oneIn(2)) moveAway();
    }
    void open() { hand.key("Control+Alt+t"); }

    void callByBus() {
        static const std::vector<std::string> calls[] = {
            {"/a", "com.ostrelmead.noonward.toggle"},
            {"/a", "com.ostrelmead.noonward.settings"},
            {"/b", "com.ostrelmead.noonward.toggle", "string:what", "int32:-1"},
            {"/b", "com.ostrelmead.noonward.settings", "array:string:a,b", "double:nan"},
            {"/c", "com.ostrelmead.noonward.nothing", "boolean:true"},
        };
        std::vector<std::string> words = oneOf(calls);
        words.insert(words.begin(), "--type=signal");
        sendOnBus(words);
    }
    void startAgain() {
        auto another = startCopy();
        see("the end of a copy", [&] { return another->status() || program->status(); });
        // One that starts while the first is ending takes its place.
        if (program->status())
            startAfterEnd(std::move(another));
        else
            EXPECT_EQ(exitStatus(*another), 0);
    }

    void clickElsewhere() { hand.clickAt({100, 700}); }
    void takePaste() {
        if (oneIn(2))
            takeClipboard();
        else
            paste(oneIn(2) ? "UTF8_STRING" : "image/png");
    }

    void removeMonitors() {
        xrandr({"--delmonitor", "right"});
        xrandr({"--delmonitor", "left"});
    }
    void changeMonitors() {
        if (oneIn(2)) {
            xrandr({"--setmonitor", "right", "800/200x900/200+800+0", "none"});
            xrandr({"--setmonitor", "*left", "800/200x900/200+0+0", "screen"});
        } else {
            xrandr({"--delmonitor", oneIn(2) ? "left" : "right"});
        }
    }

    void editFile() {
        auto whole = nlohmann::json::parse(readText(configFile()), nullptr, false);
        if (oneIn(3) || !whole.is_object() || whole.empty()) {
            configure({{"rolling", oneIn(2)}, {"appearance", oneIn(2) ? "light" : "dark"}});
            return;
        }
        static const nlohmann::json strange[] = {nullptr,
                                                 -1,
                                                 1e300,
                                                 "",
                                                 "\xF0\x9F\x8C\x8D",
                                                 true,
                                                 nlohmann::json::array(),
                                                 nlohmann::json::object()};
        auto member = whole.begin();
        std::advance(member, number(0, static_cast<int>(whole.size()) - 1));
        *member = oneOf(strange);
        std::string text = whole.dump();
        if (oneIn(2))
            text.resize(static_cast<std::size_t>(number(0, static_cast<int>(text.size()))));
        writeText(configFile(), text);
    }

    void sleepAWhile() {
        program->signal(SIGSTOP);
        point();
        std::this_thread::sleep_for(std::chrono::milliseconds(number(100, 3000)));
        program->signal(SIGCONT);
    }

    std::mt19937 dice_{wish.seed};
};

TEST_F(Soak, ItLivesAndKeepsItsMeasure) {
    const auto begin = std::chrono::steady_clock::now();
    const auto passed = [&] { return Minutes(std::chrono::steady_clock::now() - begin); };
    for (int minute = 1; passed() < wish.time; ++minute) {
        while (passed() < std::min(Minutes(minute), wish.time))
            act();
        calm();
        std::printf("minute %d: %d acts, start %d, %.0f KiB\n", minute, acts, starts,
                    privateDirtyKiB(program->id()));
        std::fflush(stdout);
    }
}

}  // namespace
}  // namespace noonward::test

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    using noonward::test::wish;
    if (argc > 1) wish.time = noonward::test::Minutes(std::atof(argv[1]));
    if (argc > 2) wish.seed = static_cast<unsigned>(std::atoi(argv[2]));
    if (argc > 3) wish.program = argv[3];
    return RUN_ALL_TESTS();
}
