// The yardstick of LiveBench: the smallest program with a window that the toolkit can do.

#include <QApplication>
#include <QLabel>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QLabel label(QStringLiteral("Hello"));
    label.show();
    return QApplication::exec();
}
