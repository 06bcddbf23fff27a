#include "platform/linux/CanberraFeedback.h"

#include <alsa/asoundlib.h>
#include <canberra.h>
#include <sys/mman.h>
#include <unistd.h>

#include <QFile>
#include <QLibrary>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string>

namespace noonward {
namespace {

constexpr std::uint32_t clickId = 1;

// ALSA reports every missing card on stderr unless told where else to.
void sayNothing(const char*, int, const char*, int, const char*, ...) {}

// A file that is nowhere but in memory, for a library that reads files only.
class MemoryFile {
 public:
    explicit MemoryFile(const QByteArray& contents) : file_(::memfd_create("click", MFD_CLOEXEC)) {
        if (file_ < 0) return;
        const auto size = static_cast<std::size_t>(contents.size());
        whole_ = ::write(file_, contents.data(), size) == contents.size();
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile() {
        if (file_ >= 0) ::close(file_);
    }

    bool whole() const { return whole_; }
    std::string path() const { return "/proc/self/fd/" + std::to_string(file_); }

 private:
    int file_;
    bool whole_ = false;
};

QByteArray clickSound() {
    QFile file(QStringLiteral(":/noonward/sounds/click.wav"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

class CanberraFeedback::Player {
 public:
    Player() : sound_(clickSound()), canberra_(QStringLiteral("canberra"), 0) {
        silenceAlsa();
        const auto create = function<decltype(&ca_context_create)>("ca_context_create");
        cancel_ = function<decltype(cancel_)>("ca_context_cancel");
        play_ = function<decltype(play_)>("ca_context_play");
        destroy_ = function<decltype(destroy_)>("ca_context_destroy");
        if (!create || !cancel_ || !play_ || !destroy_ || !sound_.whole()) return;
        if (create(&context_) != CA_SUCCESS) context_ = nullptr;
    }
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;
    ~Player() {
        if (context_) destroy_(context_);
    }

    void click(double volume) {
        if (!context_) return;
        // Written and read back by the same C library, so in the same locale.
        std::array<char, 32> decibels{};
        std::snprintf(decibels.data(), decibels.size(), "%.2f", 20 * std::log10(volume));
        cancel_(context_, clickId);
        play_(context_, clickId, CA_PROP_MEDIA_FILENAME, sound_.path().c_str(), CA_PROP_MEDIA_ROLE,
              "event", CA_PROP_EVENT_DESCRIPTION, "The notch opens", CA_PROP_CANBERRA_VOLUME,
              decibels.data(), CA_PROP_CANBERRA_CACHE_CONTROL, "volatile", nullptr);
    }

 private:
    template <typename Function>
    Function function(const char* name) {
        return reinterpret_cast<Function>(canberra_.resolve(name));
    }

    static void silenceAlsa() {
        QLibrary alsa(QStringLiteral("asound"), 2);
        const auto set = reinterpret_cast<decltype(&snd_lib_error_set_handler)>(
            alsa.resolve("snd_lib_error_set_handler"));
        if (set) set(sayNothing);
    }

    MemoryFile sound_;
    QLibrary canberra_;
    ca_context* context_ = nullptr;
    decltype(&ca_context_cancel) cancel_ = nullptr;
    decltype(&ca_context_play) play_ = nullptr;
    decltype(&ca_context_destroy) destroy_ = nullptr;
};

CanberraFeedback::CanberraFeedback() = default;
CanberraFeedback::~CanberraFeedback() = default;

void CanberraFeedback::click(double volume) {
    if (!(volume > 0)) return;
    if (!player_) player_ = std::make_unique<Player>();
    player_->click(std::min(volume, 1.0));
}

}  // namespace noonward
