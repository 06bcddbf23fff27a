#pragma once

#include "platform/Window.h"

namespace noonward::test {

/// A window nobody sees.
class FakeWindow final : public Window {
 public:
    QRectF frame() const override { return frame_; }
    void setFrame(const QRectF& frame) override { frame_ = frame; }
    QSizeF fittingSize() override { return fitting; }
    void orderFront() override { shown_ = true; }
    void makeKey() override { key_ = shown_; }
    void orderOut() override { shown_ = key_ = false; }
    bool visible() const override { return shown_; }

    bool key() const { return key_; }

    QSizeF fitting;

 private:
    QRectF frame_;
    bool shown_ = false;
    bool key_ = false;
};

}  // namespace noonward::test
