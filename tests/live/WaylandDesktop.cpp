#include "live/WaylandDesktop.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QImage>
#include <array>
#include <sstream>
#include <thread>

namespace noonward::test {
namespace {

std::string onPath(const char* program) {
    return outputOf(std::string("command -v ") + program);
}

// The screen as a picture's file.
QImage screenOfSway(const std::string& display) {
    const std::string file = outputOf("WAYLAND_DISPLAY=" + display + " grim -t ppm - 2>/dev/null");
    return QImage::fromData(QByteArray::fromStdString(file), "ppm");
}

// By its name on the bus; KWin writes the pixels themselves into a pipe.
QImage screenOfKWin(const QDBusConnection& bus) {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) return {};
    std::string bytes;
    std::thread reader([&] {
        std::array<char, 65536> part{};
        for (ssize_t got = 0; (got = ::read(ends[0], part.data(), part.size())) > 0;)
            bytes.append(part.data(), static_cast<std::size_t>(got));
    });
    QVariantMap answer;
    {
        auto call = QDBusMessage::createMethodCall(
            QStringLiteral("org.kde.KWin"), QStringLiteral("/org/kde/KWin/ScreenShot2"),
            QStringLiteral("org.kde.KWin.ScreenShot2"), QStringLiteral("CaptureScreen"));
        const QVariantMap options{{QStringLiteral("native-resolution"), true}};
        call.setArguments({QStringLiteral("Virtual-0"), options,
                           QVariant::fromValue(QDBusUnixFileDescriptor(ends[1]))});
        ::close(ends[1]);
        answer = qdbus_cast<QVariantMap>(bus.call(call).arguments().value(0));
    }
    reader.join();
    ::close(ends[0]);
    const int stride = answer[QStringLiteral("stride")].toInt();
    const QImage view(reinterpret_cast<const uchar*>(bytes.data()),
                      answer[QStringLiteral("width")].toInt(),
                      answer[QStringLiteral("height")].toInt(), stride, QImage::Format_RGB32);
    return view.copy();
}

QImage screenOfGnome(const QDBusConnection& bus, const std::filesystem::path& folder) {
    const QString file = QString::fromStdString(folder / "screen.png");
    auto call = QDBusMessage::createMethodCall(
        QStringLiteral("org.gnome.Shell.Screenshot"), QStringLiteral("/org/gnome/Shell/Screenshot"),
        QStringLiteral("org.gnome.Shell.Screenshot"), QStringLiteral("Screenshot"));
    call.setArguments({false, false, file});
    bus.call(call);
    return QImage(file);
}

}  // namespace

void WaylandDesktop::start(int scale) {
    using Kind = Compositor::Kind;
    const char* needed = Compositor::kind() == Kind::sway   ? "sway"
                         : Compositor::kind() == Kind::kwin ? "kwin_wayland"
                                                            : "gnome-shell";
    if (onPath(needed).empty()) GTEST_SKIP() << needed << " is not installed";
    hand.reset();
    compositor.emplace(bus, scale);
    if (!*compositor)
        throw std::runtime_error("the compositor has not started: " + compositor->log());
    announced = compositor->announced();
    if (Compositor::isXWaylandWanted()) announced.erase("WAYLAND_DISPLAY");
    announced["XDG_RUNTIME_DIR"] = folder.path();
    announced["ASAN_OPTIONS"] = "detect_leaks=0";  // Qt's plugin is unloaded with objects left over
    hand.emplace(Compositor::kind() == Kind::gnome ? remoteDevices(bus.address().toStdString())
                                                   : virtualDevices(compositor->display().c_str()));
    hand->movePointer(nowhere);
    compositor->settle();
}

void WaylandDesktop::launch() {
    program = startCopy();
    see("the program's name on the bus", [this] {
        return outputOf("dbus-send --print-reply --bus=" + bus.address().toStdString() +
                        " --dest=org.freedesktop.DBus / org.freedesktop.DBus.NameHasOwner"
                        " string:com.ostrelmead.noonward")
                   .find("true") != std::string::npos;
    });
}

void WaylandDesktop::toggle() {
    Process copy({programFile}, environment());
    EXPECT_EQ(exitStatus(copy), 0);
}

void WaylandDesktop::showOther() {
    auto surroundings = environment();
    surroundings["QT_QPA_PLATFORM"] = "wayland";
    surroundings["WAYLAND_DISPLAY"] = compositor->display();
    other_.emplace(std::vector<std::string>{NOONWARD_OTHER_PROGRAM}, surroundings,
                   folder / "other");
    see("the other program's window", [this] {
        sight.look();
        return sight.colour({800, 600}) == otherColour;
    });
    see("the other program with the keyboard", [this] {
        hand->key("y");
        return !givenToOther().empty();
    });
    hand->key("z");
    see("the last of the keys", [this] { return givenToOther().ends_with('z'); });
    std::filesystem::resize_file(folder / "other", 0);
}

void WaylandDesktop::seeGiven(const std::string& wanted) {
    until([&] { return givenToOther().size() >= wanted.size(); });
    EXPECT_EQ(givenToOther(), wanted);
}

std::string WaylandDesktop::paste(const std::string& options) const {
    return outputOf("WAYLAND_DISPLAY=" + compositor->display() + " timeout 20 wl-paste -n " +
                    options + " 2>/dev/null");
}

void WaylandDesktop::Picture::look() {
    QImage image;
    if (Compositor::kind() == Compositor::Kind::sway) {
        image = screenOfSway(desktop_.compositor->display());
    } else {
        const QString address = desktop_.bus.address();
        const auto bus = QDBusConnection::connectToBus(address, address);
        image = Compositor::kind() == Compositor::Kind::kwin
                    ? screenOfKWin(bus)
                    : screenOfGnome(bus, desktop_.folder.path());
    }
    image = image.convertToFormat(QImage::Format_RGB32);
    size_ = image.size();
    bytes_.assign(image.constBits(), image.constBits() + image.sizeInBytes());
}

std::vector<std::uint8_t> WaylandDesktop::Picture::pixels(const QRect& where) {
    std::vector<std::uint8_t> result;
    if (!QRect(QPoint(), size_).contains(where)) return result;
    for (int y = where.top(); y <= where.bottom(); ++y) {
        const auto row = bytes_.begin() + 4 * (y * size_.width() + where.left());
        result.insert(result.end(), row, row + 4 * where.width());
    }
    return result;
}

bool WaylandDesktop::isExpanded() {
    sight.look();
    return Session::isExpanded(sight, cap);
}

bool WaylandDesktop::isEarThere() {
    sight.look();
    return sight.colour({660, 3}) == 0;
}

// A bar of the desktop's own may be as black as the notch: its clocks tell.
bool WaylandDesktop::isFolded() {
    sight.look();
    return !sight.isBright({630, 4, 70, 16}, 120) && !sight.isBright({900, 4, 70, 16}, 120);
}

// The ribbon is not as high as the settings.
bool WaylandDesktop::isRibbonSeen() {
    return isPanelSeen() && sight.colour({left + 600, top + 530}) == otherColour;
}

bool WaylandDesktop::areSettingsSeen() {
    return isPanelSeen() && sight.colour({left + 600, top + 530}) != otherColour;
}

// Below the notch, which is as high as the desktop's bar.
bool WaylandDesktop::isPanelSeen() {
    sight.look();
    for (panelTop = top; panelTop < top + 16; ++panelTop)
        if (isStriped(sight, {left, panelTop, 1196, 200})) return true;
    return false;
}

void WaylandDesktop::hoverNotch() {
    hand->movePointer(resting);
    see("the expanded notch", [this] { return isExpanded(); });
}

std::string WaylandDesktop::situation() {
    std::ostringstream text;
    sight.look();
    for (const QPoint at : {notch, QPoint(800, 27), QPoint(800, 300), QPoint(800, 600)})
        text << " (" << at.x() << ' ' << at.y() << ": " << std::hex << sight.colour(at) << std::dec
             << ')';
    return text.str() + "; other: " + givenToOther() + "; said: " + readText(folder / "output") +
           compositor->log();
}

}  // namespace noonward::test
