#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "base/Descriptor.h"
#include "base/FileOperations.h"
#include "base/ReadFile.h"

namespace noonward {

/// A small text file that is overwritten in place, so that links to it, its owner and its mode
/// stay, and that yet is never lost: the whole new text goes into `<file>.saving` first, then over
/// the file, then `.saving` goes. A program stopped anywhere in between leaves the old text or the
/// new one for the next look. Before a save returns, what it wrote has reached the disk; a power
/// cut before that is the one thing that can tear a text longer than a page, for only one of the
/// two copies is waited for.
class InPlaceFile {
 public:
    /// Whether a text is what such a file may hold. Of a text that it takes it must refuse each
    /// beginning that lacks more than white space: by that a broken `.saving` is told from a
    /// whole one.
    using Accepts = std::function<bool(std::string_view)>;

    /// Files above `limit` bytes are neither read nor written.
    InPlaceFile(std::filesystem::path path, std::size_t limit, Accepts accepts,
                FileOperations& operations);

    /// What the file holds, seen as if an interrupted save were finished. Changes nothing.
    FileContents read() const;

    /// Finishes an interrupted save, or removes what is left of it; false when that is not
    /// possible now.
    bool recover();

    /// Writes a text; false when that failed. The file then is as it was, or, if that failed
    /// half-way, will be finished by a later `recover`. What stands there and is not `replaceable`
    /// is put aside as `<file>.unreadable`, numbered, never over an earlier one: copied, or moved
    /// if it cannot be read.
    bool write(std::string_view text, const Accepts& replaceable);

 private:
    FileContents readSaving() const;
    bool finish(const std::string& text);
    bool overwrite(Descriptor file, std::string text, const FileContents& old);
    enum class Flush { no, yes };
    bool writeNewFile(const std::filesystem::path& path, std::string_view text, Flush);
    bool flush(const Descriptor& file);
    bool copyAside(const std::string& bytes);
    bool moveAside(const std::filesystem::path& path);

    std::filesystem::path path_;
    std::filesystem::path saving_;
    std::size_t limit_;
    Accepts accepts_;
    FileOperations& operations_;
};

}  // namespace noonward
