#pragma once

#include <QPainterPath>
#include <QWidget>
#include <functional>
#include <memory>

#include "kit/FirstClickHostingView.h"
#include "platform/Window.h"
#include "platform/WindowSystem.h"

namespace noonward {

/// A borderless window that can have the keys although the program is never the active one. What
/// it shows fills its frame; where the desktop can, the content's shadow is painted around that.
class KeyPanel final : public QWidget, public Window {
 public:
    struct Options {
        WindowSystem::Level level = WindowSystem::Level::panel;
        QString title;
        QMargins room;    ///< that the content sometimes paints into, points
        QMargins shadow;  ///< that it paints its shadow into, where the desktop can, points
        /// Without translucency the window takes the outline of what it shows, not its square.
        bool outlined = false;
        /// Where what lies behind it is blurred, where the desktop can; null without that.
        std::function<QPainterPath(const QRectF& frame)> blurred;
        /// Told before each showing what can be seen through the window.
        std::function<void(WindowSystem::Translucency)> onShow = [](auto) {};
    };

    KeyPanel(WindowSystem& windows, std::unique_ptr<kit::FirstClickHostingView> content,
             Options options);

    kit::FirstClickHostingView& content() { return *content_; }

    QRectF frame() const override { return frame_; }
    void setFrame(const QRectF& frame) override;
    QSizeF fittingSize() override { return content_->fittingSize(); }
    void orderFront() override;
    void makeKey() override;
    void orderOut() override;
    bool visible() const override { return isVisible(); }

 protected:
    void resizeEvent(QResizeEvent* event) override;

 private:
    void place();
    void followFrame();
    void takeOutline();

    WindowSystem& windows_;
    kit::FirstClickHostingView* content_;
    Options options_;
    QRectF frame_;
    QMargins margins_;
    QRegion blurred_;
    bool compositing_ = false;  // what is behind it can be seen
};

}  // namespace noonward
