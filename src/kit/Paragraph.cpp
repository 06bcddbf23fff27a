#include "kit/Paragraph.h"

#include <QString>
#include <QTextBoundaryFinder>
#include <algorithm>

#include "kit/Description.h"
#include "kit/Font.h"
#include "kit/Text.h"

namespace kit {
namespace {

// Rounding on the way down the tree must not break a line that fitted.
constexpr double tolerance = 0.01;

class ParagraphNode final : public Node {
 public:
    explicit ParagraphNode(std::string_view text)
        : text_(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))),
          said_{.role = Role::text, .name = std::string(text)} {}

    QSizeF measure(const Proposal& proposal, const Environment& env) const override {
        double width = 0;
        const Views all = lines(proposal.width.value_or(infinite), env);
        for (const View& line : all)
            width = std::max(width, line->measure({proposal.width, {}}, env).width());
        return {width, static_cast<double>(all.size()) * lineHeight(env)};
    }

    double firstBaseline(const QSizeF& size, const Environment& env) const override {
        return lines(size.width(), env)
            .front()
            ->firstBaseline({size.width(), lineHeight(env)}, env);
    }

    void place(Placed& self) const override {
        const double height = lineHeight(self.environment);
        QRectF at(self.rect.left(), self.rect.top(), self.rect.width(), height);
        std::uint64_t slot = 0;
        for (const View& line : lines(self.rect.width(), self.environment)) {
            self.add(slot++, line, at);
            at.translate(0, height);
        }
    }

    const Description* accessible() const override { return &said_; }
    std::string description() const override { return "paragraph"; }

 private:
    static double lineHeight(const Environment& env) { return metrics(env.font).lineHeight; }

    Views lines(double room, const Environment& env) const {
        Views lines;
        QTextBoundaryFinder breaks(QTextBoundaryFinder::Line, text_);
        qsizetype start = 0;  // of the line
        qsizetype end = 0;    // of what is known to fit on it
        const auto piece = [&](qsizetype upTo) { return text_.mid(start, upTo - start).trimmed(); };
        for (auto next = breaks.toNextBoundary(); next >= 0; next = breaks.toNextBoundary()) {
            if (end > start && advance(env.font, piece(next)) > room + tolerance) {
                lines.push_back(text(piece(end).toStdString()));
                start = end;
            }
            end = next;
        }
        lines.push_back(text(piece(text_.size()).toStdString()));
        return lines;
    }

    QString text_;
    Description said_;
};

}  // namespace

View paragraph(std::string_view text) {
    return View(std::make_shared<ParagraphNode>(text));
}

}  // namespace kit
