#include "app/Hotkey.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

#include "fakes/FakeHotKeys.h"

namespace noonward::test {
namespace {

constexpr std::uint32_t controlOption = HotKeys::control | HotKeys::option;

TEST(Hotkey, IsToldApartByItsId) {
    FakeHotKeys keys;
    std::string done;
    const Hotkey first(keys, 17, controlOption, 1, [&] { done += "1"; });
    std::optional<Hotkey> second(std::in_place, keys, 18, controlOption, 2, [&] { done += "2"; });
    EXPECT_TRUE(first.registered());
    EXPECT_TRUE(keys.press(17, 0x1800));
    EXPECT_TRUE(keys.press(18, 0x1800));
    EXPECT_FALSE(keys.press(17, HotKeys::control));
    keys.tellAll(1);
    keys.tellAll(3);
    EXPECT_EQ(done, "121");
    second.reset();
    EXPECT_TRUE(keys.press(18, controlOption));
    EXPECT_EQ(done, "121");
}

}  // namespace
}  // namespace noonward::test
