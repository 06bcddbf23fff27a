#pragma once

#include <QSocketNotifier>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace noonward {

/// Watches entries of a folder by their names, links themselves rather than what they lead to. An
/// entry may come, go, be written to or be replaced by another.
class FolderWatch {
 public:
    /// `changed` is called from the event loop, at least once for all that happens in a turn. A
    /// folder that is not there when this is made, or that goes, is not watched.
    FolderWatch(const std::filesystem::path& folder, std::vector<std::string> names,
                std::function<void()> changed);
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;
    ~FolderWatch();

 private:
    void drain();
    bool concerns(const char* bytes, std::size_t count) const;

    std::vector<std::string> names_;
    std::function<void()> changed_;
    int descriptor_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace noonward
