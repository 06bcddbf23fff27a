#include "time/SystemZone.h"

#include <cstdlib>
#include <string>
#include <system_error>

#include "base/ReadFile.h"
#include "base/Unicode.h"

namespace noonward {
namespace {

namespace fs = std::filesystem;

std::optional<TimeZone> fromVariable(const char* text) {
    if (text == nullptr) return std::nullopt;
    std::string_view identifier = text;
    if (!identifier.empty() && identifier.front() == ':') identifier.remove_prefix(1);
    return TimeZone::find(identifier);
}

// The zone whose file a path below a "zoneinfo" folder names.
std::optional<TimeZone> fromPath(const std::string& path) {
    constexpr std::string_view folder = "/zoneinfo/";
    const std::size_t found = path.rfind(folder);
    if (found == std::string::npos) return std::nullopt;
    std::string_view identifier = std::string_view(path).substr(found + folder.size());
    // The same zones once more, without and with leap seconds.
    for (const std::string_view copy : {"posix/", "right/"}) {
        if (identifier.substr(0, copy.size()) == copy) identifier.remove_prefix(copy.size());
    }
    return TimeZone::find(identifier);
}

// The first link that names a zone counts: zones link to each other, and US/Eastern is meant so.
std::optional<TimeZone> fromLink(const fs::path& root) {
    fs::path link = root / "etc/localtime";
    for (int hop = 0; hop < 8; ++hop) {
        std::error_code error;
        const fs::path target = fs::read_symlink(link, error);
        if (error) return std::nullopt;
        if (auto zone = fromPath(target.string())) return zone;
        link = target.is_absolute() ? root / target.relative_path() : link.parent_path() / target;
    }
    return std::nullopt;
}

std::optional<TimeZone> fromFile(const fs::path& root) {
    const std::string text = readRegularFile(root / "etc/timezone", 4096).bytes;
    return TimeZone::find(unicode::trimmed(std::string_view(text).substr(0, text.find('\n'))));
}

}  // namespace

TimeZone systemZone(const fs::path& root, const char* variable) {
    if (const auto zone = fromVariable(variable)) return *zone;
    if (const auto zone = fromLink(root)) return *zone;
    if (const auto zone = fromFile(root)) return *zone;
    return TimeZone::utc();
}

TimeZone ComputerZone::current() const {
    if (!held_) held_ = systemZone("/", std::getenv("TZ"));
    return *held_;
}

void ComputerZone::resetSystemTimeZone() {
    held_.reset();
    TimeZone::takeUpReplacedData();
}

}  // namespace noonward
