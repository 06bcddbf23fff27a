#pragma once

#include "platform/Pasteboard.h"

namespace noonward {

/// The desktop's clipboard. What is put there ends with the program, unless a clipboard manager
/// has taken it.
class ClipboardPasteboard final : public Pasteboard {
 public:
    void setText(const std::string& text) override;
    void setPng(const QByteArray& picture) override;
};

}  // namespace noonward
