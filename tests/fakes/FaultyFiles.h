#pragma once

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <limits>

#include "base/FileOperations.h"

namespace noonward::test {

/// File operations that go wrong at one of them, counted from 0. Each is done by the system until
/// then, so that real files stand as a real accident would leave them.
class FaultyFiles final : public FileOperations {
 public:
    enum class Fault {
        stop,  ///< as if the process were killed: this one and all that follow do nothing
        fail,  ///< this one fails as on a full disk, those that follow work
    };

    /// Nothing goes wrong, but nobody waits for the disk.
    FaultyFiles() : FaultyFiles(Fault::stop, std::numeric_limits<int>::max()) {}

    /// A write that goes wrong has first written `written` bytes.
    FaultyFiles(Fault fault, int at, std::size_t written = 0)
        : fault_(fault), at_(at), written_(written) {}

    /// How often the disk was waited for.
    int waits() const { return waits_; }

    /// Whether the moment has come.
    bool happened() const { return count_ > at_; }

    int openForWriting(const std::filesystem::path& path, int flags) override {
        return next() ? FileOperations::openForWriting(path, flags) : -1;
    }
    ssize_t write(int descriptor, const char* bytes, std::size_t count) override {
        if (next()) return FileOperations::write(descriptor, bytes, count);
        const bool now = count_ == at_ + 1;
        const std::size_t part = std::min(written_, count);
        if (!now || part == 0) return -1;
        // The rest then fails in a write of its own.
        if (fault_ == Fault::fail && part < count) --count_, written_ = 0;
        return FileOperations::write(descriptor, bytes, part);
    }
    int ftruncate(int descriptor, off_t length) override {
        return next() ? FileOperations::ftruncate(descriptor, length) : -1;
    }
    int fdatasync(int) override {  // no need to wait for test data
        ++waits_;
        return next() ? 0 : -1;
    }
    int rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
        return next() ? FileOperations::rename(from, to) : -1;
    }
    int remove(const std::filesystem::path& path) override {
        return next() ? FileOperations::remove(path) : -1;
    }
    void createFolders(const std::filesystem::path& path) override {
        if (next()) FileOperations::createFolders(path);
    }

 private:
    bool next() {
        const int current = count_++;
        const bool works = current < at_ || (fault_ == Fault::fail && current > at_);
        if (!works) errno = ENOSPC;
        return works;
    }

    Fault fault_;
    int at_;
    std::size_t written_;
    int count_ = 0;
    int waits_ = 0;
};

}  // namespace noonward::test
