#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <utility>

#include "kit/FirstClickHostingView.h"
#include "kit/Shapes.h"

namespace kit {

inline const Environment environment{.font = systemFont(13), .colour = black};

inline View box(double width, double height) {
    return rectangle().fill(black).frame({.width = width, .height = height});
}

/// A window that shows `body`, as large as that wants to be.
class Window {
 public:
    explicit Window(FirstClickHostingView::Body body)
        : view(animations, environment, std::move(body)) {
        view.setFocus();
        view.resize(view.fittingSize().toSize());
        view.show();
        QApplication::setActiveWindow(&view);
    }

    void mouse(QEvent::Type type, QPointF at, Qt::MouseButton button = Qt::LeftButton) {
        QMouseEvent event(type, at, view.mapToGlobal(at), button,
                          type == QEvent::MouseMove ? Qt::MouseButtons() : button, Qt::NoModifier);
        QApplication::sendEvent(&view, &event);
    }
    void click(QPointF at) {
        mouse(QEvent::MouseButtonPress, at);
        mouse(QEvent::MouseButtonRelease, at);
    }
    void key(int code, const QString& text) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, code, Qt::NoModifier, text);
            QApplication::sendEvent(QApplication::focusWidget(), &event);
        }
    }

    Animations animations;
    FirstClickHostingView view;
};

}  // namespace kit
