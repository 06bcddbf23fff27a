#include "time/ZoneDatabase.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <functional>

#include "base/ReadFile.h"

namespace noonward::zonedatabase {
namespace {

constexpr std::string_view folder = "/usr/share/zoneinfo/";
constexpr std::string_view magic = "TZif";  // RFC 8536 §3.1

// A file of the database, empty when it cannot be read. The largest has 110 KB.
std::string contents(std::string_view name) {
    constexpr std::size_t limit = 4 << 20;
    return readRegularFile(std::string(folder).append(name), limit).bytes;
}

// Calls `use` with each piece between separators that is not empty.
template <typename Use>
void forEachPiece(std::string_view text, char separator, Use use) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(separator), text.size());
        if (end > 0) use(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

std::vector<std::string_view> pieces(std::string_view text, char separator) {
    std::vector<std::string_view> result;
    forEachPiece(text, separator, [&](std::string_view piece) { result.push_back(piece); });
    return result;
}

const std::vector<std::string>& zonesAndLinks() {
    static const std::vector<std::string> names = parseZonesAndLinks(contents("tzdata.zi"));
    return names;
}

}  // namespace

std::vector<TableRow> parseTable(std::string_view text) {
    std::vector<TableRow> rows;
    forEachPiece(text, '\n', [&](std::string_view line) {
        if (line.front() == '#') return;
        const auto fields = pieces(line, '\t');
        if (fields.size() < 3) return;
        rows.push_back({std::string(fields[0]), std::string(fields[2])});
    });
    return rows;
}

const std::vector<TableRow>& table() {
    static const std::vector<TableRow> rows = parseTable(contents("zone.tab"));
    return rows;
}

std::vector<std::string> parseZonesAndLinks(std::string_view text) {
    std::vector<std::string> names;
    forEachPiece(text, '\n', [&](std::string_view line) {
        const bool zone = line.starts_with("Z ");
        const bool link = line.starts_with("L ");
        if (!zone && !link) return;
        const auto fields = pieces(line, ' ');
        const std::size_t name = zone ? 1 : 2;  // L TARGET LINK-NAME
        if (fields.size() > name) names.emplace_back(fields[name]);
    });
    std::sort(names.begin(), names.end());
    return names;
}

const std::vector<std::string>& identifiers() {
    static const std::vector<std::string> sorted = [] {
        std::vector<std::string> names;
        for (const TableRow& row : table())
            names.push_back(row.zone);
        std::sort(names.begin(), names.end());
        names.erase(std::unique(names.begin(), names.end()), names.end());
        return names;
    }();
    return sorted;
}

bool lists(std::string_view identifier) {
    if (identifier == "Factory") return false;
    const auto in = [&](const std::vector<std::string>& names) {
        return std::binary_search(names.begin(), names.end(), identifier, std::less<>());
    };
    return in(identifiers()) || in(zonesAndLinks());
}

bool hasFile(const std::string& identifier) {
    std::array<char, magic.size()> head{};
    std::ifstream file(std::string(folder).append(identifier), std::ios::binary);
    return file.read(head.data(), head.size()) &&
           std::string_view(head.data(), head.size()) == magic;
}

std::optional<std::string> readFile(const std::string& identifier) {
    std::string bytes = contents(identifier);
    if (!bytes.starts_with(magic)) return std::nullopt;
    return bytes;
}

}  // namespace noonward::zonedatabase
