#include "platform/linux/FolderWatch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace noonward {

FolderWatch::FolderWatch(const std::filesystem::path& folder, std::vector<std::string> names,
                         std::function<void()> changed)
    : names_(std::move(names)),
      changed_(std::move(changed)),
      descriptor_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    if (descriptor_ < 0) return;
    constexpr std::uint32_t events =
        IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_CLOSE_WRITE | IN_ONLYDIR;
    if (::inotify_add_watch(descriptor_, folder.c_str(), events) < 0) return;
    notifier_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this] { drain(); });
}

FolderWatch::~FolderWatch() {
    notifier_.reset();
    if (descriptor_ >= 0) ::close(descriptor_);
}

void FolderWatch::drain() {
    alignas(inotify_event) std::array<char, 4096> bytes{};
    bool isConcerned = false;
    ssize_t count = 0;
    while ((count = ::read(descriptor_, bytes.data(), bytes.size())) > 0)
        isConcerned = concerns(bytes.data(), static_cast<std::size_t>(count)) || isConcerned;
    if (isConcerned) changed_();
}

// inotify(7): events of varying length, one after the other, none cut in two.
bool FolderWatch::concerns(const char* bytes, std::size_t count) const {
    for (std::size_t at = 0; at + sizeof(inotify_event) <= count;) {
        inotify_event event{};
        std::memcpy(&event, bytes + at, sizeof(event));
        const char* name = bytes + at + sizeof(event);
        at += sizeof(event) + event.len;
        if (event.mask & IN_Q_OVERFLOW) return true;  // what it was is lost
        const std::string_view named(name, event.len ? ::strnlen(name, event.len) : 0);
        if (std::find(names_.begin(), names_.end(), named) != names_.end()) return true;
    }
    return false;
}

}  // namespace noonward
