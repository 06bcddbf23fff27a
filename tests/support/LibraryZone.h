#pragma once

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace noonward::test {

/// Puts the C library, and `TZ`, into a zone, and back at the end of its life.
class LibraryZone {
 public:
    explicit LibraryZone(const std::string& identifier) {
        if (const char* old = std::getenv("TZ")) old_ = old;
        set(identifier);
    }
    ~LibraryZone() {
        if (old_) {
            set(*old_);
        } else {
            unsetenv("TZ");
            tzset();
        }
    }
    LibraryZone(const LibraryZone&) = delete;
    LibraryZone& operator=(const LibraryZone&) = delete;

    void set(const std::string& identifier) {
        setenv("TZ", identifier.c_str(), 1);
        tzset();
    }

 private:
    std::optional<std::string> old_;
};

}  // namespace noonward::test
