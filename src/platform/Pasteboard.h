#pragma once

#include <QByteArray>
#include <string>

namespace noonward {

/// The clipboard. What is put there replaces all that was.
class Pasteboard {
 public:
    virtual ~Pasteboard() = default;
    virtual void setText(const std::string& text) = 0;  ///< UTF-8
    virtual void setPng(const QByteArray& picture) = 0;
};

}  // namespace noonward
