#pragma once

#include <QPoint>
#include <cstdint>
#include <string_view>
#include <vector>

namespace noonward::test {

/// The hand at mouse and keyboard.
class Hand {
 public:
    virtual ~Hand() = default;

    virtual void movePointer(QPoint to) = 0;
    virtual void press(std::uint8_t button) = 0;
    virtual void release(std::uint8_t button) = 0;
    void click(std::uint8_t button = 1);
    void clickAt(QPoint at, std::uint8_t button = 1);
    void drag(QPoint from, QPoint to);

    /// A key with the modifiers that are held, as in "Control+Alt+t", "Shift+Right" or "[".
    void key(std::string_view name);
    /// Plain text of ASCII, a millisecond between one stroke and the next.
    void type(std::string_view text);
    /// The key with that name on it, by its number in XKB.
    std::uint8_t codeOf(std::string_view name) { return find(name).code; }

 protected:
    struct Place {
        std::uint8_t code;
        bool shifted;
    };
    /// Where a key symbol is; throws when it is on no key.
    virtual Place findSymbol(std::uint32_t symbol) = 0;
    /// Presses the keys, each so many milliseconds after what came before it, and lets them go.
    virtual void stroke(const std::vector<std::uint8_t>& codes, std::uint32_t delay) = 0;

 private:
    Place find(std::string_view name);
};

}  // namespace noonward::test
