#include "base/FileOperations.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace noonward {
namespace {

template <typename Call>
auto repeated(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

}  // namespace

int FileOperations::openForWriting(const std::filesystem::path& path, int flags) {
    constexpr int always = O_WRONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    return repeated([&] { return ::open(path.c_str(), always | flags, S_IRUSR | S_IWUSR); });
}

ssize_t FileOperations::write(int descriptor, const char* bytes, std::size_t count) {
    return repeated([&] { return ::write(descriptor, bytes, count); });
}

int FileOperations::ftruncate(int descriptor, off_t length) {
    return repeated([&] { return ::ftruncate(descriptor, length); });
}

int FileOperations::fdatasync(int descriptor) {
    return repeated([&] { return ::fdatasync(descriptor); });
}

int FileOperations::rename(const std::filesystem::path& from, const std::filesystem::path& to) {
    return std::rename(from.c_str(), to.c_str());
}

int FileOperations::remove(const std::filesystem::path& path) {
    return std::remove(path.c_str());
}

void FileOperations::createFolders(const std::filesystem::path& path) {
    std::error_code ignored;
    std::filesystem::create_directories(path, ignored);
}

bool FileOperations::writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t done = write(descriptor, bytes.data(), bytes.size());
        if (done <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(done));
    }
    return true;
}

FileOperations& FileOperations::system() {
    static FileOperations operations;
    return operations;
}

}  // namespace noonward
