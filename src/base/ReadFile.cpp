#include "base/ReadFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "base/Descriptor.h"

namespace noonward {
namespace {

using State = FileContents::State;

/// What an error says of the file; errors that say nothing of it are `failed`.
State stateOf(int error) {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
            return State::missing;
        case EACCES:
        case EPERM:
        case ELOOP:
        case EIO:
        case ENXIO:
            return State::unreadable;
        default:
            return State::failed;
    }
}

/// Reads to the end, or to one byte past the limit; nothing when an error stands in errno.
bool readUpTo(int descriptor, std::size_t limit, std::size_t expected, std::string& bytes) {
    bytes.resize(std::min(expected, limit) + 1);
    std::size_t length = 0;
    while (length <= limit) {
        if (length == bytes.size()) bytes.resize(std::min(2 * bytes.size(), limit + 1));
        const ssize_t got = ::read(descriptor, bytes.data() + length, bytes.size() - length);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return false;
        if (got == 0) break;
        length += static_cast<std::size_t>(got);
    }
    bytes.resize(length);
    return true;
}

}  // namespace

FileContents readRegularFile(const std::filesystem::path& path, std::size_t limit, Links links) {
    // Asked before opening: to open a device can already set something off.
    struct stat facts {};
    const bool follow = links == Links::follow;
    const int asked = follow ? ::stat(path.c_str(), &facts) : ::lstat(path.c_str(), &facts);
    if (asked != 0) return {stateOf(errno), {}};
    if (!S_ISREG(facts.st_mode)) return {State::unreadable, {}};

    const int flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | (follow ? 0 : O_NOFOLLOW);
    int number = -1;
    do
        number = ::open(path.c_str(), flags);
    while (number < 0 && errno == EINTR);
    const Descriptor file(number);
    if (!file || ::fstat(file.number(), &facts) != 0) return {stateOf(errno), {}};
    if (!S_ISREG(facts.st_mode)) return {State::unreadable, {}};

    const auto size = static_cast<std::size_t>(std::max<off_t>(facts.st_size, 0));
    if (size > limit) return {State::tooLarge, {}};
    FileContents contents{State::read, {}};
    if (!readUpTo(file.number(), limit, size, contents.bytes)) return {stateOf(errno), {}};
    if (contents.bytes.size() > limit) return {State::tooLarge, {}};
    return contents;
}

}  // namespace noonward
