#include "config/InPlaceFile.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace noonward {
namespace {

using State = FileContents::State;

constexpr int mostPutAside = 99;

/// An interrupted overwriting has written at least this much of the new text: the system stops
/// between pages, a full disk between blocks.
constexpr std::size_t sector = 512;

std::filesystem::path withSuffix(std::filesystem::path path, const std::string& suffix) {
    path += suffix;
    return path;
}

/// places.json.unreadable, places.json.unreadable.2, .3 …
std::filesystem::path asideName(const std::filesystem::path& path, int number) {
    return withSuffix(path, number == 1 ? ".unreadable" : ".unreadable." + std::to_string(number));
}

bool holdsText(const FileContents& contents) {
    return contents.state == State::read && !contents.bytes.empty();
}

/// Whether a broken file is one that was being overwritten with `text`.
bool beganAs(std::string_view bytes, std::string_view text) {
    return text.size() >= sector && bytes.substr(0, sector) == text.substr(0, sector);
}

bool isFree(const std::filesystem::path& path) {
    std::error_code ignored;
    return std::filesystem::symlink_status(path, ignored).type() ==
           std::filesystem::file_type::not_found;
}

}  // namespace

InPlaceFile::InPlaceFile(std::filesystem::path path, std::size_t limit, Accepts accepts,
                         FileOperations& operations)
    : path_(std::move(path)),
      saving_(withSuffix(path_, ".saving")),
      limit_(limit),
      accepts_(std::move(accepts)),
      operations_(operations) {}

FileContents InPlaceFile::read() const {
    FileContents saving = readSaving();
    if (saving.state == State::read && accepts_(saving.bytes)) return saving;
    return readRegularFile(path_, limit_);
}

bool InPlaceFile::recover() {
    const FileContents saving = readSaving();
    switch (saving.state) {
        case State::missing:
            return true;
        case State::read:
            if (accepts_(saving.bytes)) return finish(saving.bytes);
            return operations_.remove(saving_) == 0;
        case State::tooLarge:
        case State::unreadable:
            return moveAside(saving_);  // no save of ours left that
        case State::failed:
            break;
    }
    return false;
}

bool InPlaceFile::write(std::string_view text, const Accepts& replaceable) {
    if (text.size() > limit_) return false;
    operations_.createFolders(path_.parent_path());
    if (!recover()) return false;

    const FileContents old = readRegularFile(path_, limit_);
    if (old.state == State::failed) return false;
    if (holdsText(old) && !replaceable(old.bytes) && !copyAside(old.bytes)) return false;

    // Opened before anything is changed: a file that may not be written stays, with no `.saving`
    // beside it that would stand for it from now on.
    Descriptor file;
    if (old.state == State::read) {
        file = Descriptor(operations_.openForWriting(path_, 0));
        if (!file) return false;
    }
    if (!writeNewFile(saving_, text, Flush::no)) return false;
    if (old.state == State::missing) {
        file = Descriptor(operations_.openForWriting(path_, O_CREAT));
        if (!file) {
            operations_.remove(saving_);
            return false;
        }
    }
    return overwrite(std::move(file), std::string(text), old);
}

FileContents InPlaceFile::readSaving() const {
    return readRegularFile(saving_, limit_, Links::refuse);
}

bool InPlaceFile::finish(const std::string& text) {
    const FileContents old = readRegularFile(path_, limit_);
    if (old.state == State::failed) return false;
    const bool isOurs = !holdsText(old) || accepts_(old.bytes) || beganAs(old.bytes, text);
    if (!isOurs && !copyAside(old.bytes)) return false;
    return overwrite(Descriptor(), text, old);
}

/// Puts `text` where the file lies and removes `.saving`, which holds the same text. `file` is the
/// file opened for writing, or none yet; `old` what was found there.
bool InPlaceFile::overwrite(Descriptor file, std::string text, const FileContents& old) {
    const bool isOurs = old.state == State::read || old.state == State::missing;
    if (!isOurs && !moveAside(path_)) return false;
    if (!file) file = Descriptor(operations_.openForWriting(path_, O_CREAT));
    if (!file) return false;

    // Never truncated first: the spaces keep each moment's content as long as old or new text.
    const std::size_t length = text.size();
    text.resize(std::max(length, old.bytes.size()), ' ');
    if (!operations_.writeAll(file.number(), text)) return false;
    // Where this fails spaces stay; where another program has lengthened the file, its tail goes.
    operations_.ftruncate(file.number(), static_cast<off_t>(length));
    // The one wait for the disk in a save. Before it `.saving` must not go: a power cut could then
    // leave a new length with old bytes.
    if (!flush(file)) return false;
    return operations_.remove(saving_) == 0;
}

/// All or nothing, and never over anything.
bool InPlaceFile::writeNewFile(const std::filesystem::path& path, std::string_view text,
                               Flush flushed) {
    const Descriptor file(operations_.openForWriting(path, O_CREAT | O_EXCL));
    if (!file) return false;
    if (operations_.writeAll(file.number(), text) && (flushed == Flush::no || flush(file)))
        return true;
    operations_.remove(path);
    return false;
}

/// Waits for the disk. Only errors that say the bytes did not get there count: some file systems
/// cannot be waited for.
bool InPlaceFile::flush(const Descriptor& file) {
    if (operations_.fdatasync(file.number()) == 0) return true;
    return errno != EIO && errno != ENOSPC && errno != EDQUOT;
}

bool InPlaceFile::copyAside(const std::string& bytes) {
    for (int number = 1; number <= mostPutAside; ++number) {
        const auto name = asideName(path_, number);
        const FileContents earlier = readRegularFile(name, limit_, Links::refuse);
        if (earlier.state == State::read && earlier.bytes == bytes) return true;
        if (earlier.state == State::missing) return writeNewFile(name, bytes, Flush::yes);
    }
    return false;
}

bool InPlaceFile::moveAside(const std::filesystem::path& path) {
    for (int number = 1; number <= mostPutAside; ++number) {
        const auto name = asideName(path_, number);
        if (isFree(name)) return operations_.rename(path, name) == 0;
    }
    return false;
}

}  // namespace noonward
