#include "base/Published.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace noonward {
namespace {

TEST(Announcer, TellsListenersInOrderUntilTheyLeave) {
    Announcer announcer;
    std::string told;
    const Subscription a = announcer.subscribe([&] { told += 'a'; });
    std::optional<Subscription> b = announcer.subscribe([&] { told += 'b'; });
    const Subscription c = announcer.subscribe([&] { told += 'c'; });
    announcer.announce();
    b.reset();
    announcer.announce();
    EXPECT_EQ(told, "abcac");
}

TEST(Announcer, LetsListenersComeAndGoWhileTelling) {
    Announcer announcer;
    std::string told;
    Subscription itself, later, added;
    itself = announcer.subscribe([&] {
        told += 'i';
        itself.reset();
        later.reset();
        added = announcer.subscribe([&] { told += 'n'; });
    });
    later = announcer.subscribe([&] { told += 'l'; });
    announcer.announce();
    EXPECT_EQ(told, "in") << "who has left is not told any more, who has come is";
    announcer.announce();
    EXPECT_EQ(told, "inn");
}

TEST(Announcer, MayDieWhileTellingAndBeforeItsListeners) {
    auto announcer = std::make_unique<Announcer>();
    int told = 0;
    const Subscription first = announcer->subscribe([&] { announcer.reset(); });
    Subscription second = announcer->subscribe([&] { ++told; });
    announcer->announce();
    EXPECT_EQ(announcer, nullptr);
    EXPECT_EQ(told, 1);
    second.reset();
}

TEST(Subscription, MovesWithoutLeaving) {
    Announcer announcer;
    std::string told;
    Subscription a = announcer.subscribe([&] { told += 'a'; });
    Subscription moved = std::move(a);
    Subscription b = announcer.subscribe([&] { told += 'b'; });
    announcer.announce();
    moved = std::move(b);  // the first one leaves
    announcer.announce();
    EXPECT_EQ(told, "abb");
}

TEST(Published, AnnouncesEachNewValueOnce) {
    Announcer announcer;
    Published<std::string> value(announcer, "one");
    std::vector<std::string> seen;
    const Subscription watch = announcer.subscribe([&] { seen.push_back(value()); });
    value = "one";
    value = "two";
    value = "two";
    value = "one";
    EXPECT_EQ(seen, (std::vector<std::string>{"two", "one"}));
}

TEST(WhenChanged, ActsOnlyOnChangesOfWhatIsSelected) {
    Announcer announcer;
    Published<int> watched(announcer, 1), other(announcer, 1);
    std::vector<int> seen;
    const Subscription watch = whenChanged(
        announcer, [&] { return watched(); }, [&] { seen.push_back(watched()); });
    announcer.announce();
    other = 2;
    watched = 5;
    other = 3;
    watched = 1;
    EXPECT_EQ(seen, (std::vector<int>{5, 1}));
}

TEST(WhenChanged, DoesNotActAgainOnItsOwnAnnouncement) {
    Announcer announcer;
    Published<int> watched(announcer, 0), answer(announcer, 0);
    int acted = 0;
    const Subscription watch = whenChanged(
        announcer, [&] { return watched(); },
        [&] {
            ++acted;
            answer = watched() * 2;
        });
    watched = 4;
    EXPECT_EQ(acted, 1);
    EXPECT_EQ(answer(), 8);
}

}  // namespace
}  // namespace noonward
