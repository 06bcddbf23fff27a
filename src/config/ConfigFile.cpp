#include "config/ConfigFile.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "config/ConfigJson.h"

namespace noonward {
namespace {

using State = FileContents::State;

/// Larger files count as no configuration: one of a few places has 3 KB.
constexpr std::size_t largestFile = 1 << 20;

bool haveSameLabels(const std::vector<Place>& a, const std::vector<Place>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const Place& x, const Place& y) { return x.label == y.label; });
}

/// Whether a file that held `stored` may stay as it is.
bool isInCurrentForm(const DecodedConfig& stored, const Config& tidied) {
    return stored.hasAllKeys && stored.config.favourites == tidied.favourites &&
           haveSameLabels(stored.config.places, tidied.places);
}

}  // namespace

ConfigPaths configPaths(const char* xdgDataHome, const char* home) {
    const std::filesystem::path homeFolder = home ? home : "";
    std::filesystem::path dataFolder = xdgDataHome ? xdgDataHome : "";
    if (!dataFolder.is_absolute() && homeFolder.is_absolute())
        dataFolder = homeFolder / ".local/share";
    ConfigPaths paths;
    if (dataFolder.is_absolute()) paths.file = dataFolder / "Noonward/places.json";
    if (homeFolder.is_absolute()) paths.oldFile = homeFolder / ".config/zones/places.json";
    return paths;
}

ConfigFile::ConfigFile(ConfigPaths paths, Access access, FileOperations& operations)
    : paths_(std::move(paths)), access_(access), operations_(operations) {}

Config ConfigFile::load(const TimeZone& here) {
    taken_ = false;
    known_.reset();
    FileContents contents = read();
    if (contents.state == State::tooLarge || contents.state == State::failed)
        return Config::defaults(here);
    if (contents.state != State::read) {
        Config config = Config::defaults(here).tidied(here);
        save(config);
        return config;
    }
    const auto stored = decodeConfig(contents.bytes, here);
    if (!stored) return Config::defaults(here);
    known_ = std::move(contents.bytes);
    taken_ = true;
    Config config = stored->config.tidied(here);
    if (!isInCurrentForm(*stored, config)) save(config);
    return config;
}

void ConfigFile::save(const Config& config) {
    if (access_ == Access::readOnly || paths_.file.empty()) return;
    std::string text = encodeConfig(config);
    const auto replaceable = [this](std::string_view bytes) {
        return bytes == known_ || (taken_ && isConfiguration(bytes));
    };
    if (!inPlaceFile().write(text, replaceable)) return;
    taken_ = true;
    known_ = std::move(text);
}

/// The file's content after whatever must be done before it is read. The older version's file is
/// taken up where there is none yet; it stays where it is.
FileContents ConfigFile::read() {
    if (paths_.file.empty()) return {};
    InPlaceFile file = inPlaceFile();
    if (access_ == Access::readWrite) file.recover();
    FileContents contents = file.read();
    if (contents.state != State::missing || paths_.oldFile.empty()) return contents;

    FileContents old = readRegularFile(paths_.oldFile, largestFile);
    if (access_ == Access::readOnly || old.state == State::failed) return old;
    const auto nothingThere = [](std::string_view) { return false; };
    if (old.state == State::read && !file.write(old.bytes, nothingThere)) return old;
    return file.read();
}

bool ConfigFile::isConfiguration(std::string_view text) const {
    return text == known_ || decodeConfig(text, TimeZone::utc()).has_value();
}

InPlaceFile ConfigFile::inPlaceFile() {
    return {paths_.file, largestFile,
            [this](std::string_view text) { return isConfiguration(text); }, operations_};
}

}  // namespace noonward
