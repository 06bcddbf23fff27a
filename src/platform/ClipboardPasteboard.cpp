#include "platform/ClipboardPasteboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <memory>

namespace noonward {

void ClipboardPasteboard::setText(const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

void ClipboardPasteboard::setPng(const QByteArray& picture) {
    auto contents = std::make_unique<QMimeData>();
    contents->setData(QStringLiteral("image/png"), picture);
    QGuiApplication::clipboard()->setMimeData(contents.release());
}

}  // namespace noonward
