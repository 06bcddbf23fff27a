#include "live/Hand.h"

#include <map>

namespace noonward::test {
namespace {

// X11 protocol, appendix A; those of ASCII are the characters themselves.
const std::map<std::string_view, std::uint32_t> named = {
    {"BackSpace", 0xff08}, {"Tab", 0xff09},  {"Return", 0xff0d}, {"Escape", 0xff1b},
    {"Home", 0xff50},      {"Left", 0xff51}, {"Up", 0xff52},     {"Right", 0xff53},
    {"Down", 0xff54},      {"End", 0xff57},  {"Delete", 0xffff}, {"Shift", 0xffe1},
    {"Control", 0xffe3},   {"Alt", 0xffe9},
};

std::uint32_t symbolOf(std::string_view name) {
    if (name.size() == 1) return static_cast<unsigned char>(name.front());
    return named.at(name);
}

}  // namespace

void Hand::click(std::uint8_t button) {
    press(button);
    release(button);
}

void Hand::clickAt(QPoint at, std::uint8_t button) {
    movePointer(at);
    click(button);
}

void Hand::drag(QPoint from, QPoint to) {
    movePointer(from);
    press(1);
    movePointer((from + to) / 2);
    movePointer(to);
    release(1);
}

void Hand::key(std::string_view name) {
    std::vector<std::uint8_t> codes;
    for (auto plus = name.find('+'); plus != std::string_view::npos; plus = name.find('+')) {
        codes.push_back(codeOf(name.substr(0, plus)));
        name.remove_prefix(plus + 1);
    }
    codes.push_back(codeOf(name));
    stroke(codes, 2);  // two strokes of one millisecond would be a repeat
}

void Hand::type(std::string_view text) {
    for (const char& letter : text) {
        const Place place = find({&letter, 1});
        if (place.shifted)
            stroke({codeOf("Shift"), place.code}, 0);
        else
            stroke({place.code}, 1);
    }
}

Hand::Place Hand::find(std::string_view name) {
    return findSymbol(symbolOf(name));
}

}  // namespace noonward::test
