#pragma once

#include <QString>

#include "support/ServerProcess.h"
#include "support/TempFolder.h"

namespace noonward::test {

/// A message bus that nobody else is on and that starts no services.
class PrivateBus {
 public:
    PrivateBus() : server_([this](const std::string& readyEnd) { return command(readyEnd); }) {}

    QString address() const { return QString::fromStdString(server_.line()); }
    void stop() { server_.stop(); }

 private:
    std::vector<std::string> command(const std::string& readyEnd) {
        // Compositors run as another user, and may be on it.
        std::filesystem::permissions(folder_.path(), std::filesystem::perms(0711));
        writeText(folder_ / "bus.conf", R"(<busconfig>
  <type>session</type>
  <listen>unix:dir=)" + folder_.path().string() +
                                            R"(</listen>
  <policy context="default">
    <allow user="*"/> <allow send_destination="*"/> <allow receive_sender="*"/> <allow own="*"/>
  </policy>
</busconfig>)");
        return {"dbus-daemon",
                "--nofork",
                "--nosyslog",
                "--nopidfile",
                "--config-file=" + (folder_ / "bus.conf").string(),
                "--print-address=" + readyEnd};
    }

    TempFolder folder_;
    ServerProcess server_;
};

}  // namespace noonward::test
