#pragma once

#include <optional>
#include <string>

#include "platform/Pasteboard.h"

namespace noonward::test {

/// A clipboard of its own: holds one thing.
class FakePasteboard final : public Pasteboard {
 public:
    void setText(const std::string& copied) override {
        text = copied;
        png.reset();
    }
    void setPng(const QByteArray& picture) override {
        png = picture;
        text.reset();
    }

    std::optional<std::string> text;
    std::optional<QByteArray> png;
};

}  // namespace noonward::test
