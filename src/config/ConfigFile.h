#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "base/FileOperations.h"
#include "base/ReadFile.h"
#include "config/Config.h"
#include "config/InPlaceFile.h"

namespace noonward {

/// Where the configuration lies. Absolute paths, or empty.
struct ConfigPaths {
    std::filesystem::path file;     ///< …/Noonward/places.json; empty: there is no usable folder
    std::filesystem::path oldFile;  ///< ~/.config/zones/places.json, which older versions wrote
};

/// Finds them by the XDG base directory rules from the values of XDG_DATA_HOME and HOME (null:
/// unset): the data folder is XDG_DATA_HOME if that is absolute, else .local/share below HOME.
/// What cannot be found is empty.
ConfigPaths configPaths(const char* xdgDataHome, const char* home);

/// The configuration's file, places.json. Nothing that happens to it is reported: what cannot be
/// read gives defaults, what cannot be saved stays as it was. Whoever stops the program between
/// two instructions finds the configuration before a save or after it, never a part of either.
class ConfigFile {
 public:
    enum class Access {
        readWrite,
        readOnly,  ///< for demonstration pictures: no file is created or changed
    };

    explicit ConfigFile(ConfigPaths paths, Access access = Access::readWrite,
                        FileOperations& operations = FileOperations::system());

    /// The stored configuration, tidied. The first time, an older version's file is adopted.
    /// Rewrites a file that is missing or not in the current form. A file that is not a valid
    /// configuration gives defaults and stays untouched until the next save; what is no readable
    /// file at all is put aside at once. `here` is this computer's zone, from which defaults are
    /// made.
    Config load(const TimeZone& here);

    /// Writes the configuration as it is. A file that the last load could not take in is put aside
    /// as places.json.unreadable first.
    void save(const Config& config);

 private:
    FileContents read();
    bool isConfiguration(std::string_view text) const;
    InPlaceFile inPlaceFile();

    ConfigPaths paths_;
    Access access_;
    FileOperations& operations_;
    /// A text that is a configuration, for it was read or written last: spares decoding it again.
    std::optional<std::string> known_;
    /// Whether nothing in the file is unknown to whoever saves: the last load took in all there
    /// was.
    bool taken_ = true;
};

}  // namespace noonward
