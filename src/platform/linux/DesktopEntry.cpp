#include "platform/linux/DesktopEntry.h"

#include <algorithm>

#include "base/Unicode.h"

namespace noonward {
namespace {

constexpr std::string_view header = "[Desktop Entry]";

bool isBlankOrComment(std::string_view line) {
    const std::string_view trimmed = unicode::trimmed(line);
    return trimmed.empty() || trimmed.front() == '#';
}

// "key = value"; what is neither that nor blank nor a comment has no key.
std::string_view keyOf(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || isBlankOrComment(line)) return {};
    const std::string_view key = line.substr(0, equals);
    return key.substr(0, key.find_last_not_of(" \t") + 1);
}

// "Possible value types": \s \n \t \r \\, and \; between the entries of a list.
std::string escaped(std::string_view text, bool inList = false) {
    std::string result;
    for (const char each : text) {
        switch (each) {
            case '\\':
                result += "\\\\";
                break;
            case '\n':
                result += "\\n";
                break;
            case '\t':
                result += "\\t";
                break;
            case '\r':
                result += "\\r";
                break;
            case ';':
                result += inList ? "\\;" : ";";
                break;
            default:
                result += each;
        }
    }
    if (!result.empty() && result.front() == ' ') result.replace(0, 1, "\\s");
    return result;
}

char unescaped(char escape) {
    switch (escape) {
        case 's':
            return ' ';
        case 'n':
            return '\n';
        case 't':
            return '\t';
        case 'r':
            return '\r';
        default:
            return escape;
    }
}

// The entries of a list; without a separator there is one.
std::vector<std::string> split(std::string_view raw, bool isList) {
    std::vector<std::string> result(1);
    for (std::size_t i = 0; i < raw.size(); ++i) {
        if (raw[i] == '\\' && i + 1 < raw.size())
            result.back() += unescaped(raw[++i]);
        else if (isList && raw[i] == ';')
            result.emplace_back();
        else
            result.back() += raw[i];
    }
    return result;
}

}  // namespace

DesktopEntry::DesktopEntry() : lines_{std::string(header)} {}

std::optional<DesktopEntry> DesktopEntry::parse(std::string_view text) {
    DesktopEntry entry;
    entry.lines_.clear();
    for (std::size_t from = 0; from < text.size();) {
        const std::size_t to = std::min(text.find('\n', from), text.size());
        entry.lines_.emplace_back(text.substr(from, to - from));
        from = to + 1;
    }
    const auto first = std::find_if_not(entry.lines_.begin(), entry.lines_.end(), isBlankOrComment);
    if (first == entry.lines_.end() || unicode::trimmed(*first) != header) return std::nullopt;
    entry.begin_ = static_cast<std::size_t>(first - entry.lines_.begin()) + 1;
    return entry;
}

std::string DesktopEntry::text() const {
    std::string result;
    for (const std::string& line : lines_)
        result += line + '\n';
    return result;
}

// The line with which another group begins.
std::size_t DesktopEntry::end() const {
    const auto from = lines_.begin() + static_cast<std::ptrdiff_t>(begin_);
    const auto next = std::find_if(from, lines_.end(),
                                   [](const std::string& line) { return line.starts_with('['); });
    return static_cast<std::size_t>(next - lines_.begin());
}

std::optional<std::size_t> DesktopEntry::find(std::string_view key) const {
    for (std::size_t i = end(); i-- > begin_;)
        if (keyOf(lines_[i]) == key) return i;
    return std::nullopt;
}

std::optional<std::string> DesktopEntry::raw(std::string_view key) const {
    const auto line = find(key);
    if (!line) return std::nullopt;
    const std::string_view text = lines_[*line];
    return std::string(unicode::trimmed(text.substr(text.find('=') + 1)));
}

std::optional<std::string> DesktopEntry::string(std::string_view key) const {
    const auto value = raw(key);
    return value ? std::optional(split(*value, false).front()) : std::nullopt;
}

std::vector<std::string> DesktopEntry::list(std::string_view key) const {
    auto entries = split(raw(key).value_or(""), true);
    entries.erase(std::remove(entries.begin(), entries.end(), ""), entries.end());
    return entries;
}

// "1" and "0" are from before Desktop Entry 1.0 (freedesktop.org).
bool DesktopEntry::isTrue(std::string_view key, bool unsaid) const {
    const std::string value = raw(key).value_or("");
    if (value == "true" || value == "1") return true;
    if (value == "false" || value == "0") return false;
    return unsaid;
}

void DesktopEntry::setRaw(std::string_view key, const std::string& value) {
    const std::string line = std::string(key) + '=' + value;
    if (const auto found = find(key)) {
        lines_[*found] = line;
        return;
    }
    std::size_t after = end();
    while (after > begin_ && isBlankOrComment(lines_[after - 1]))
        --after;
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(after), line);
}

void DesktopEntry::set(std::string_view key, std::string_view value) {
    setRaw(key, escaped(value));
}

void DesktopEntry::set(std::string_view key, const std::vector<std::string>& list) {
    std::string value;
    for (const std::string& entry : list)
        value += escaped(entry, true) + ';';
    setRaw(key, value);
}

void DesktopEntry::erase(std::string_view key) {
    while (const auto found = find(key))
        lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(*found));
}

// "The Exec key".
std::string execWord(std::string_view argument) {
    const bool quoted =
        argument.empty() || argument.find_first_of(" \t\n\"'\\><~|&;$*?#()`") != std::string::npos;
    std::string result;
    for (const char each : argument) {
        if (each == '"' || each == '`' || each == '$' || each == '\\') result += '\\';
        if (each == '%') result += '%';
        result += each;
    }
    return quoted ? '"' + result + '"' : result;
}

std::vector<std::string> execWords(std::string_view exec) {
    std::vector<std::string> words;
    bool inQuotes = false;
    bool inWord = false;
    for (std::size_t i = 0; i < exec.size(); ++i) {
        const char each = exec[i];
        const bool isSpace = each == ' ' || each == '\t' || each == '\n';
        if (isSpace && !inQuotes) {
            inWord = false;
            continue;
        }
        if (!inWord) words.emplace_back();
        inWord = true;
        if (each == '"') {
            inQuotes = !inQuotes;
            continue;
        }
        const bool escapes = each == '\\' && inQuotes;
        const bool doubled = each == '%' && exec.substr(i + 1, 1) == "%";
        if ((escapes || doubled) && i + 1 < exec.size()) ++i;
        words.back() += exec[i];
    }
    return words;
}

}  // namespace noonward
