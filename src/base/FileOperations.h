#pragma once

#include <sys/types.h>

#include <cstddef>
#include <filesystem>
#include <string_view>

namespace noonward {

/// The system calls with which files are created and changed, so that tests can stop or fail a
/// sequence of them at any point. Each behaves as the POSIX function of the same name does, errno
/// included, except that an interrupted call is repeated.
class FileOperations {
 public:
    FileOperations() = default;
    FileOperations(const FileOperations&) = delete;
    FileOperations& operator=(const FileOperations&) = delete;
    virtual ~FileOperations() = default;

    /// Opens for writing only, close-on-exec, never waiting. `flags` may add O_CREAT and the like;
    /// what is created is the user's alone (mode 0600).
    virtual int openForWriting(const std::filesystem::path& path, int flags);
    virtual ssize_t write(int descriptor, const char* bytes, std::size_t count);
    virtual int ftruncate(int descriptor, off_t length);
    virtual int fdatasync(int descriptor);
    virtual int rename(const std::filesystem::path& from, const std::filesystem::path& to);
    /// Removes a file, a link or an empty folder.
    virtual int remove(const std::filesystem::path& path);
    /// Creates a folder with those above it.
    virtual void createFolders(const std::filesystem::path& path);

    /// Writes all of it, in as many calls as that takes; false when one fails.
    bool writeAll(int descriptor, std::string_view bytes);

    /// The system's own.
    static FileOperations& system();
};

}  // namespace noonward
