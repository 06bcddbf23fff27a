// The file in which a country's holidays are kept: what is written of it is the same when it is
// read again.

#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "Require.h"
#include "holidays/HolidayCache.h"

namespace noonward::fuzz {
namespace {

// In memory where the system has such a folder: the disk is not what is tried.
struct Folder {
    Folder() { std::filesystem::create_directories(path); }
    ~Folder() { std::filesystem::remove_all(path); }

    const std::filesystem::path path =
        (std::filesystem::is_directory("/dev/shm") ? std::filesystem::path("/dev/shm")
                                                   : std::filesystem::temp_directory_path()) /
        ("noonward-fuzz-" + std::to_string(::getpid()));
};

void read(std::string_view text) {
    static const Folder folder;
    std::ofstream(folder.path / "IN.json", std::ios::binary) << text;
    const auto cached = readHolidayCache(folder.path, "IN");
    if (!cached) return;
    writeHolidayCache(folder.path, "IN", *cached);
    const auto again = readHolidayCache(folder.path, "IN");
    require(again && again->days.size() == cached->days.size(), "no day is lost");
    writeHolidayCache(folder.path, "IN", *again);
    const auto third = readHolidayCache(folder.path, "IN");
    require(third && third->days == again->days, "what is written is what is read");
}

}  // namespace
}  // namespace noonward::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    noonward::fuzz::read(noonward::fuzz::text(data, size));
    return 0;
}
