#include "kit/Text.h"

#include <QString>
#include <algorithm>

#include "kit/Description.h"
#include "kit/Painting.h"

namespace kit {
namespace {

// No place in any layout shows more; what lies beyond must not cost anything.
constexpr qsizetype mostUnits = 2000;
// Rounding on the way down the tree must not turn a text that fits into one that is cut.
constexpr double tolerance = 0.01;

const QString& ellipsis() {
    static const QString text(QChar(0x2026));
    return text;
}

// Embedding, override and isolate controls (UAX #9): one left open in a name would turn round
// everything that is written behind it. Isolates by the first letter are what keeps names from
// that.
bool steersDirection(QChar character) {
    return (character >= QChar(0x202A) && character <= QChar(0x202E)) ||
           character == QChar(0x2066) || character == QChar(0x2067);
}

bool isolates(QChar character) {
    return character == QChar(0x2068) || character == QChar(0x2069);
}

// More marks over one letter than any language writes would cover what stands above.
bool pilesMarks(const QString& text) {
    constexpr int most = 2;
    int marks = 0;
    for (const QChar character : text) {
        marks = character.category() == QChar::Mark_NonSpacing ? marks + 1 : 0;
        if (marks > most) return true;
    }
    return false;
}

QString singleLine(std::string_view utf8) {
    const auto bytes = std::min<std::size_t>(utf8.size(), 4 * static_cast<std::size_t>(mostUnits));
    QString line = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(bytes));
    if (line.size() > mostUnits) line.truncate(mostUnits);
    line.removeIf(steersDirection);
    for (QChar& character : line) {
        const QChar::Category category = character.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line ||
            category == QChar::Separator_Paragraph) {
            character = QChar(u' ');
        }
    }
    return line;
}

class TextNode final : public Node {
 public:
    explicit TextNode(const std::vector<TextRun>& runs) {
        for (const TextRun& run : runs) {
            runs_.push_back({singleLine(run.text), run.font, run.colour});
        }
        said_.role = Role::text;
        for (const Run& run : runs_) {
            said_.name += QString(run.text).removeIf(isolates).toStdString();
            isTall_ = isTall_ || pilesMarks(run.text);
        }
    }

    QSizeF measure(const Proposal& proposal, const Environment& env) const override {
        double width = 0;
        double height = 0;
        for (const Run& run : runs_) {
            width += advance(fontOf(run, env), run.text);
            height = std::max(height, metrics(fontOf(run, env)).lineHeight);
        }
        if (proposal.width && *proposal.width < width) {
            const double least =
                runs_.empty() ? 0 : advance(fontOf(runs_.front(), env), ellipsis());
            width = std::min(width, std::max(*proposal.width, least));
        }
        return {width, height};
    }

    double firstBaseline(const QSizeF& size, const Environment& env) const override {
        double ascent = 0;
        double descent = 0;
        for (const Run& run : runs_) {
            ascent = std::max(ascent, metrics(fontOf(run, env)).ascent);
            descent = std::max(descent, metrics(fontOf(run, env)).descent);
        }
        return (size.height() - ascent - descent) / 2 + ascent;
    }

    void paint(const Placed& self, Painting& painting) const override {
        if (isTall_) {
            painting.clipped(self.rect, [&](Painting& inside) { paintRuns(self, inside); });
        } else {
            paintRuns(self, painting);
        }
    }

    void paintRuns(const Placed& self, Painting& painting) const {
        const Environment& env = self.environment;
        QPointF at(self.rect.left(), self.rect.top() + firstBaseline(self.rect.size(), env));
        at.setY(painting.aligned(QRectF(at, QSizeF(0, 0))).top());
        QPainter& painter = painting.painter();
        // A name written from right to left must not turn the line that it begins.
        painter.setLayoutDirection(Qt::LeftToRight);
        for (const Run& run : fitted(self.rect.width() + tolerance, env)) {
            const Font& font = fontOf(run, env);
            painter.setFont(metrics(font).font);
            painter.setPen(run.colour.value_or(env.colour).qcolor());
            painter.drawText(at, run.text);
            at.rx() += advance(font, run.text);
        }
    }

    bool paintsLike(const Node& other) const override {
        const auto* same = dynamic_cast<const TextNode*>(&other);
        return same && same->runs_ == runs_;
    }

    std::string description() const override { return "text \"" + said_.name + "\""; }

    const Description* accessible() const override { return &said_; }

 private:
    struct Run {
        QString text;
        std::optional<Font> font;
        std::optional<Colour> colour;

        bool operator==(const Run&) const = default;
    };

    static const Font& fontOf(const Run& run, const Environment& env) {
        return run.font ? *run.font : env.font;
    }

    // The runs as they fit into `room`: whole, or up to the one that ends with the ellipsis.
    std::vector<Run> fitted(double room, const Environment& env) const {
        double left = 0;
        for (const Run& run : runs_)
            left += advance(fontOf(run, env), run.text);
        if (left <= room) return runs_;
        std::vector<Run> shown;
        for (const Run& run : runs_) {
            const Font& font = fontOf(run, env);
            const double width = advance(font, run.text);
            if (width + advance(font, ellipsis()) <= room) {
                shown.push_back(run);
                room -= width;
                continue;
            }
            // The ellipsis must come even where this run alone would fit and a later one not.
            const QString tooLong = run.text + ellipsis() + ellipsis();
            shown.push_back({elided(font, tooLong, room), run.font, run.colour});
            break;
        }
        return shown;
    }

    std::vector<Run> runs_;
    bool isTall_ = false;  // beyond its line
    Description said_;
};

}  // namespace

View text(std::string_view line) {
    return text({TextRun{std::string(line)}});
}
View text(const char* line) {
    return text(std::string_view(line));
}
View text(const std::vector<TextRun>& runs) {
    return View(std::make_shared<TextNode>(runs));
}

}  // namespace kit
