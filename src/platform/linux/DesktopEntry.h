#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace noonward {

/// A desktop entry (Desktop Entry Specification 1.5): the keys of its main group. Whatever else the
/// file holds, such as comments, translations and other groups, stays as it is.
class DesktopEntry {
 public:
    DesktopEntry();  ///< one without keys

    /// Nothing where the main group is not what the text begins with.
    static std::optional<DesktopEntry> parse(std::string_view text);
    std::string text() const;

    // The last of several equal keys counts. A missing key has no value, and its list is empty.
    std::optional<std::string> string(std::string_view key) const;
    std::vector<std::string> list(std::string_view key) const;
    bool isTrue(std::string_view key, bool unsaid) const;  ///< `unsaid`: what other values mean

    void set(std::string_view key, std::string_view value);
    void set(std::string_view key, const std::vector<std::string>& list);
    void erase(std::string_view key);

 private:
    std::optional<std::size_t> find(std::string_view key) const;
    std::size_t end() const;
    void setRaw(std::string_view key, const std::string& value);
    std::optional<std::string> raw(std::string_view key) const;

    std::vector<std::string> lines_;
    std::size_t begin_ = 1;  // the line after the group's header
};

/// One word of the key Exec that stands for `argument` as it is, quoted where that is needed.
std::string execWord(std::string_view argument);

/// The words of the key Exec, without their quotes; field codes such as %f stay.
std::vector<std::string> execWords(std::string_view exec);

}  // namespace noonward
