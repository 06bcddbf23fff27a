#include <gtest/gtest.h>

#include <QApplication>
#include <cstdio>

#include "platform/linux/MessageBus.h"
#include "support/ServerProcess.h"

namespace {

// Whatever Qt has to complain about is a fault of ours: a test that makes it speak fails.
void failOnWarning(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtDebugMsg || type == QtInfoMsg) return;
    ADD_FAILURE() << "Qt says: " << message.toStdString();
}

// An X server without a screen.
std::vector<std::string> xServer(const std::string& readyEnd) {
    return {"Xvfb",        "-displayfd", readyEnd, "-screen", "0",
            "1280x800x24", "-nolisten",  "tcp",    "-noreset"};
}

}  // namespace

// Tests against an X server, which each run starts for itself and takes down again.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
    const noonward::test::ServerProcess server(xServer);
    if (server.line().empty()) {
        std::fputs("Xvfb cannot be started\n", stderr);
        return 1;
    }
    qputenv("DISPLAY", QByteArray::fromStdString(":" + server.line()));
    qputenv("QT_QPA_PLATFORM", "xcb");
    for (const char* announcement : {"DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"})
        qunsetenv(announcement);
    noonward::SessionBus::startNone();
    const QApplication application(argc, argv);
    qInstallMessageHandler(failOnWarning);
    return RUN_ALL_TESTS();
}
