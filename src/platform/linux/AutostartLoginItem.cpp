#include "platform/linux/AutostartLoginItem.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <algorithm>
#include <system_error>

#include "base/ReadFile.h"

namespace noonward {
namespace {

namespace fs = std::filesystem;

constexpr auto fileName = "noonward.desktop";
constexpr std::size_t longest = 64U << 10U;
constexpr auto gnomeEnabled = "X-GNOME-Autostart-enabled";

FileContents read(const fs::path& folder) {
    if (folder.empty()) return {};
    return readRegularFile(folder / fileName, longest);
}

fs::path variable(const char* name) {
    return qgetenv(name).toStdString();
}

std::vector<std::string> partsOf(const char* name, const char* unset) {
    std::vector<std::string> parts;
    for (const QByteArray& part : qEnvironmentVariableIsEmpty(name) ? QByteArray(unset).split(':')
                                                                    : qgetenv(name).split(':'))
        if (!part.isEmpty()) parts.push_back(part.toStdString());
    return parts;
}

// Looked for as a shell does, links followed; empty where there is no such program.
QString found(const std::string& program) {
    const QString file = QStandardPaths::findExecutable(QString::fromStdString(program));
    return file.isEmpty() ? file : QFileInfo(file).canonicalFilePath();
}

bool contains(const std::vector<std::string>& list, const std::string& name) {
    return std::find(list.begin(), list.end(), name) != list.end();
}

// Whatever it is, the user may want it back; an earlier one is kept.
bool putAside(const fs::path& folder) {
    const QString file = QString::fromStdString(folder / fileName);
    for (int number = 1; number < 100; ++number) {
        const QString suffix = number > 1 ? '.' + QString::number(number) : QString();
        if (QFile::rename(file, file + ".unreadable" + suffix)) return true;
    }
    return false;
}

// Whole or not at all, and through a link to where the file really is.
void write(const fs::path& folder, const std::string& text) {
    if (!QDir().mkpath(QString::fromStdString(folder))) return;
    QSaveFile file(QString::fromStdString(folder / fileName));
    if (!file.open(QIODevice::WriteOnly)) return;
    file.write(QByteArray::fromStdString(text));
    file.commit();
}

}  // namespace

AutostartLoginItem::Setting AutostartLoginItem::ofSession() {
    Setting setting;
    const fs::path own = variable("XDG_CONFIG_HOME");
    const fs::path home = variable("HOME");
    if (own.is_absolute())
        setting.user = own / "autostart";
    else if (home.is_absolute())
        setting.user = home / ".config/autostart";
    for (const fs::path folder : partsOf("XDG_CONFIG_DIRS", "/etc/xdg"))
        if (folder.is_absolute()) setting.system.push_back(folder / "autostart");
    setting.desktops = partsOf("XDG_CURRENT_DESKTOP", "");
    setting.program = QCoreApplication::applicationFilePath().toStdString();
    return setting;
}

// The first file of that name counts, whatever is in it.
bool AutostartLoginItem::enabled() const {
    std::vector<fs::path> folders{setting_.user};
    folders.insert(folders.end(), setting_.system.begin(), setting_.system.end());
    for (const fs::path& folder : folders) {
        const FileContents file = read(folder);
        if (file.state == FileContents::State::missing) continue;
        const auto entry = DesktopEntry::parse(file.bytes);
        return entry && starts(*entry);
    }
    return false;
}

void AutostartLoginItem::set(bool on) {
    if (setting_.user.empty() || on == enabled()) return;
    const FileContents file = read(setting_.user);
    const bool isReadable = file.state == FileContents::State::read;
    if (!isReadable && file.state != FileContents::State::missing) return;
    if (on && found(setting_.program).isEmpty()) return;
    const std::optional<DesktopEntry> known = DesktopEntry::parse(file.bytes);
    if (isReadable && !known && !putAside(setting_.user)) return;
    DesktopEntry entry = known.value_or(DesktopEntry());
    entry.set("Type", "Application");
    if (!entry.string("Name")) entry.set("Name", "Noonward");
    if (on)
        switchOn(entry);
    else
        entry.set("Hidden", "true");
    write(setting_.user, entry.text());
}

bool AutostartLoginItem::starts(const DesktopEntry& entry) const {
    const std::string needed = entry.string("TryExec").value_or("");
    return entry.string("Type") == "Application" && !entry.string("Exec").value_or("").empty() &&
           !entry.isTrue("Hidden", false) && entry.isTrue(gnomeEnabled, true) && isShown(entry) &&
           (needed.empty() || !found(needed).isEmpty());
}

// The first of the desktop's names that either list has decides.
bool AutostartLoginItem::isShown(const DesktopEntry& entry) const {
    const auto only = entry.list("OnlyShowIn");
    const auto never = entry.list("NotShowIn");
    for (const std::string& desktop : setting_.desktops) {
        if (contains(only, desktop)) return true;
        if (contains(never, desktop)) return false;
    }
    return only.empty();
}

// Perhaps with something before it: users start programs through others.
bool AutostartLoginItem::runsProgram(const DesktopEntry& entry) const {
    const QString program = found(setting_.program);
    const auto words = execWords(entry.string("Exec").value_or(""));
    return std::any_of(words.begin(), words.end(), [&](const std::string& word) {
        return !program.isEmpty() && found(word) == program;
    });
}

void AutostartLoginItem::switchOn(DesktopEntry& entry) const {
    if (!runsProgram(entry)) entry.set("Exec", execWord(setting_.program.string()));
    entry.set("TryExec", setting_.program.string());
    entry.erase("Hidden");
    if (!entry.isTrue(gnomeEnabled, true)) entry.set(gnomeEnabled, "true");
    if (!isShown(entry)) show(entry);
}

void AutostartLoginItem::show(DesktopEntry& entry) const {
    auto only = entry.list("OnlyShowIn");
    auto never = entry.list("NotShowIn");
    const auto& here = setting_.desktops;
    never.erase(std::remove_if(never.begin(), never.end(),
                               [&](const std::string& name) { return contains(here, name); }),
                never.end());
    entry.erase("NotShowIn");
    if (!never.empty()) entry.set("NotShowIn", never);
    if (only.empty()) return;
    // A desktop without a name is none that could be listed.
    entry.erase("OnlyShowIn");
    if (here.empty()) return;
    only.push_back(here.front());
    entry.set("OnlyShowIn", only);
}

bool isInstalled(const fs::path& program) {
    std::error_code ignored;
    return program.parent_path().filename() == "bin" &&
           fs::is_regular_file(
               program.parent_path().parent_path() / "share/applications" / fileName, ignored);
}

}  // namespace noonward
