#include <gtest/gtest.h>

#include <QApplication>

#include "views/theme/Fonts.h"

namespace {

// Whatever Qt has to complain about is a fault of ours: a test that makes it speak fails.
void failOnWarning(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtDebugMsg || type == QtInfoMsg) return;
    // Of windows that are nowhere: they cannot be raised, nor grab anything.
    if (message.startsWith(QStringLiteral("This plugin does not support"))) return;
    ADD_FAILURE() << "Qt says: " << message.toStdString();
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    noonward::registerFonts();
    qInstallMessageHandler(failOnWarning);
    return RUN_ALL_TESTS();
}
