#include "kit/Font.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QHash>
#include <cmath>
#include <memory>

namespace kit {
namespace {

struct Entry {
    explicit Entry(const QFont& font) : measure(font) {}
    FontMetrics metrics;
    QFontMetricsF measure;
    QHash<QString, double> advances;
};

// A day's clock texts are a few hundred; past this many the old ones are not coming back.
constexpr qsizetype mostAdvances = 4096;

QFont makeFont(const Font& font) {
    QFont result = font.family.isEmpty() ? QFontDatabase::systemFont(QFontDatabase::GeneralFont)
                                         : QFont(font.family);
    result.setStyleHint(QFont::SansSerif);
    // Points of the layout are pixels of a 1× screen whatever the desktop calls its resolution.
    result.setPixelSize(static_cast<int>(std::lround(font.size)));
    result.setWeight(static_cast<QFont::Weight>(font.weight));
    // Unhinted glyphs keep their widths at every scale, so a layout holds at 1× and 2× alike.
    result.setHintingPreference(QFont::PreferNoHinting);
    return result;
}

Entry& entry(const Font& font) {
    static QHash<Font, std::shared_ptr<Entry>> entries;
    auto& slot = entries[font];
    if (!slot) {
        const QFont made = makeFont(font);
        slot = std::make_shared<Entry>(made);
        slot->metrics.font = made;
        slot->metrics.ascent = slot->measure.ascent();
        slot->metrics.descent = slot->measure.descent();
        slot->metrics.lineHeight = std::ceil(slot->metrics.ascent + slot->metrics.descent);
    }
    return *slot;
}

}  // namespace

const FontMetrics& metrics(const Font& font) {
    return entry(font).metrics;
}

double advance(const Font& font, const QString& text) {
    Entry& known = entry(font);
    if (const auto found = known.advances.constFind(text); found != known.advances.constEnd()) {
        return *found;
    }
    if (known.advances.size() >= mostAdvances) known.advances.clear();
    return *known.advances.insert(text, known.measure.horizontalAdvance(text));
}

QString elided(const Font& font, const QString& text, double width) {
    if (advance(font, text) <= width) return text;
    return entry(font).measure.elidedText(text, Qt::ElideRight, width);
}

}  // namespace kit
