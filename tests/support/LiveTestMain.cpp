#include <gtest/gtest.h>

#include <QApplication>
#include <cstdio>

#include "support/PrivateXServer.h"

namespace {

// Whatever Qt has to complain about is a fault of ours: a test that makes it speak fails.
void failOnWarning(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtDebugMsg || type == QtInfoMsg) return;
    ADD_FAILURE() << "Qt says: " << message.toStdString();
}

}  // namespace

// Tests against an X server, which each run starts for itself and takes down again.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
    const noonward::test::PrivateXServer server;
    if (!server.runs()) {
        std::fputs("Xvfb cannot be started\n", stderr);
        return 1;
    }
    qputenv("DISPLAY", QByteArray::fromStdString(server.display()));
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("NO_AT_BRIDGE", "1");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    const QApplication application(argc, argv);
    qInstallMessageHandler(failOnWarning);
    return RUN_ALL_TESTS();
}
