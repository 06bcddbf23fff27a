#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace noonward {

/// What came of reading a file.
struct FileContents {
    enum class State {
        read,        ///< `bytes` is the whole file
        missing,     ///< nothing there, or a link that leads nowhere
        tooLarge,    ///< a regular file above the limit; `bytes` is empty
        unreadable,  ///< no regular file, no permission, or a fault of the disk
        failed,      ///< the system could not try just now (too many open files, no memory ...)
    };
    State state = State::missing;
    std::string bytes;
};

enum class Links { follow, refuse };

/// Reads a regular file of at most `limit` bytes. Nothing else is ever opened, and so nothing
/// waits: not for a pipe's other end, not for a device. A link itself, where links are refused,
/// is unreadable.
FileContents readRegularFile(const std::filesystem::path& path, std::size_t limit,
                             Links links = Links::follow);

}  // namespace noonward
