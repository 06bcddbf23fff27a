#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <cstdio>

namespace {

// Another program's window: it writes the keys that it is given, and a "." for each press.
class Window final : public QWidget {
 public:
    Window() { setStyleSheet("background: #204020"); }

 private:
    void keyPressEvent(QKeyEvent* event) override { say(event->text()); }
    void mousePressEvent(QMouseEvent*) override { say("."); }
    static void say(const QString& text) {
        std::fputs(qPrintable(text), stdout);
        std::fflush(stdout);
    }
};

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    Window window;
    window.setWindowFlag(Qt::FramelessWindowHint);
    window.showMaximized();
    return QApplication::exec();
}
