#pragma once

#include <QFont>
#include <QHashFunctions>
#include <QString>

namespace kit {

enum class Weight { light = 300, regular = 400, medium = 500, semibold = 600, bold = 700 };

/// A font by family, size in points of the layout, and weight. An empty family is the desktop's
/// own interface font.
struct Font {
    QString family;
    double size = 13;
    Weight weight = Weight::regular;

    bool operator==(const Font&) const = default;
};

inline size_t qHash(const Font& font, size_t seed = 0) {
    return qHashMulti(seed, font.family, font.size, static_cast<int>(font.weight));
}

/// The desktop's interface font.
inline Font systemFont(double size, Weight weight = Weight::regular) {
    return {{}, size, weight};
}

/// What the layout needs to know of a font, in points.
struct FontMetrics {
    QFont font;  ///< sized in pixels of the layout, unhinted
    double ascent = 0;
    double descent = 0;
    double lineHeight = 0;  ///< ascent and descent, rounded up to whole points
};

/// Kept for the life of the process.
const FontMetrics& metrics(const Font& font);

/// The advance of a single line of text, in points.
double advance(const Font& font, const QString& text);

/// The text itself where it fits `width`, otherwise as much of its beginning as fits with "…".
QString elided(const Font& font, const QString& text, double width);

}  // namespace kit
