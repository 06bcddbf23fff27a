#include "views/theme/WidgetLook.h"

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>
#include <QToolTip>

#include "views/theme/Fonts.h"

namespace noonward {
namespace {

// Colour over colour: what the toolkit draws is opaque.
QColor over(const kit::Colour& ground, const kit::Colour& colour) {
    const auto mixed = [&](double below, double above) {
        return below + (above - below) * colour.alpha;
    };
    return kit::Colour{mixed(ground.red, colour.red), mixed(ground.green, colour.green),
                       mixed(ground.blue, colour.blue)}
        .qcolor();
}

constexpr int air = 5;  // points

// Menus and tooltips get air around their words, and a border no louder than those of the panels.
class WidgetStyle final : public QProxyStyle {
 public:
    WidgetStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        if (element == PE_FrameMenu) return;  // its panel has a border
        if (element != PE_PanelTipLabel && element != PE_PanelMenu)
            return QProxyStyle::drawPrimitive(element, option, painter, widget);
        painter->fillRect(option->rect, option->palette.color(QPalette::ToolTipBase));
        painter->setPen(option->palette.color(QPalette::Mid));
        painter->drawRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5));
    }

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override {
        if (metric == PM_ToolTipLabelFrameWidth || metric == PM_MenuVMargin) return air;
        return QProxyStyle::pixelMetric(metric, option, widget);
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override {
        const QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
        const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        const bool isLine =
            type == CT_MenuItem && item && item->menuItemType != QStyleOptionMenuItem::Separator;
        return isLine ? result + QSize(2 * air, air) : result;
    }
};

}  // namespace

QStyle* makeWidgetStyle() {
    return new WidgetStyle;
}

void dressWidgets(Scheme scheme) {
    const Palette& colours = Palette::of(scheme);
    const QColor ground = colours.tint.qcolor();
    const QColor ink = colours.text.qcolor();
    const QColor border = over(colours.tint, colours.border);
    QPalette palette(over(colours.tint, colours.chip), ground);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, ink);
    for (const auto role : {QPalette::Base, QPalette::ToolTipBase})
        palette.setColor(role, ground);
    for (const auto role : {QPalette::Dark, QPalette::Mid, QPalette::Midlight})
        palette.setColor(role, border);
    palette.setColor(QPalette::Highlight, over(colours.tint, colours.button));
    palette.setColor(QPalette::HighlightedText, kit::white.qcolor());
    palette.setColor(QPalette::PlaceholderText, colours.mist.qcolor());
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, over(colours.tint, colours.mist.opacity(0.55)));
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
    QToolTip::setFont(kit::metrics(hanken(12)).font);
    QApplication::setFont(kit::metrics(hanken(13)).font, "QMenu");
}

}  // namespace noonward
