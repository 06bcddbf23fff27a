#include "platform/EventLoopQueue.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <string>

#include "support/Wait.h"

namespace noonward::test {
namespace {

using namespace std::chrono_literals;

TEST(EventLoopQueueTest, RunsWorkLaterAndInTheOrderInWhichItFallsDue) {
    EventLoopQueue queue;
    std::string log;
    QElapsedTimer since;
    since.start();
    qint64 took = 0;
    queue.after(60ms, [&] {
        took = since.elapsed();
        log += "d";
    });
    queue.after(20ms, [&] { log += "c"; });
    queue.post([&] {
        log += "a";
        queue.post([&] { log += "b"; });
    });
    queue.after(-5ms, [&] { log += "x"; });
    EXPECT_EQ(log, "");
    EXPECT_TRUE(eventually([&] { return log.size() == 5; }));
    EXPECT_GE(took, 60);
    std::erase(log, 'x');
    EXPECT_EQ(log, "abcd");
}

TEST(EventLoopQueueTest, DropsWhatWaitsWhenItGoes) {
    bool ran = false;
    {
        EventLoopQueue queue;
        queue.post([&] { ran = true; });
        queue.after(0ms, [&] { ran = true; });
        queue.after(1ms, [&] { ran = true; });
    }
    EventLoopQueue other;
    bool later = false;
    other.after(5ms, [&] { later = true; });
    EXPECT_TRUE(eventually([&] { return later; }));
    EXPECT_FALSE(ran);
}

}  // namespace
}  // namespace noonward::test
