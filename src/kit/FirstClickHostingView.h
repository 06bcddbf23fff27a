#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>

#include "kit/Animation.h"
#include "kit/Fields.h"
#include "kit/Painting.h"
#include "kit/Placed.h"
#include "kit/Presentation.h"
#include "kit/Tiles.h"

namespace kit {

/// Shows a view in a window and hands it what the user does. It acts on the first click and shows
/// tooltips although its program is never the active one.
class FirstClickHostingView : public QWidget, private Animations::Member {
 public:
    using Body = std::function<View()>;

    /// `body` is asked anew whenever what it shows has changed.
    FirstClickHostingView(Animations& animations, Environment environment, Body body);
    ~FirstClickHostingView() override;

    /// Says that the body has something else to show. However often it is said, the view is built
    /// anew once, in the next turn of the event loop or when it is asked for before; while nobody
    /// sees it, when it is shown again.
    void invalidate();

    /// Takes up pending changes at once, without animation.
    void refresh();

    /// Where everything is once nothing moves any more, pending changes included.
    const Placed& placed();

    /// The same as it was built last: without pending changes, and safe to ask for at any time.
    const Placed& built() const { return presentation_.target(); }

    /// The ideal size of the body, in points, pending changes included.
    QSizeF fittingSize();

    /// Room around the view, in the widget, for what it paints beyond its rectangle, in points.
    void setMargins(const QMargins& margins);
    const QMargins& margins() const { return margins_; }
    /// From the widget's coordinates to the view's.
    QPointF inView(const QPointF& point) const { return point - origin(); }

    /// Called after each change of what is placed.
    std::function<void()> onRebuilt;
    /// Called when the view goes, while all of it is still there.
    std::function<void()> onGone;

    /// Called whenever something else is to be seen, frame by frame while it glides.
    std::function<void()> onFrame;
    /// Whether anything is gliding.
    bool moving() const { return presentation_.moving(); }
    /// What is to be seen at the moment, as a picture as large as the widget, margins included.
    QImage picture(double pixelsPerPoint);

    /// Called when the ideal size has changed.
    std::function<void()> onResized;

    /// The widget behind a field, or behind a button that keys press; null where there is none.
    QWidget* realField(Id id) const { return fields_.widget(id); }

    /// Whether a control is to be seen at a point of the view.
    bool hasControlAt(const QPointF& point);

    /// The pointer is at a point of the view: for when others have taken its events meanwhile.
    void pointAt(const QPointF& point) { hoverAt(point); }

    /// Opens a menu at a point of the screen.
    void popUp(const std::vector<MenuItem>& items, const QPoint& at);

    /// Moves the insertion point of a focused text field behind its text.
    void caretToEnd() { fields_.caretToEnd(); }

 protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

 private:
    using OnHover = std::function<void(std::optional<Hover>)>;

    void settle(const std::optional<Curve>& curve) override;
    void takeUp(const std::optional<Curve>& curve);
    void present();
    void tellRebuilt();
    QPoint origin() const { return {margins_.left(), margins_.top()}; }
    double seconds() const;
    void showFocusedField();
    void hoverAt(const std::optional<QPointF>& point);
    void attend();
    void showCursor();
    void hideTooltip();

    Environment environment_;
    Body body_;
    Presentation presentation_;
    std::shared_ptr<const Placed> painted_;
    Tiles tiles_;
    Fields fields_;
    QElapsedTimer clock_;
    QTimer frames_;
    QMargins margins_;
    bool pending_ = true;
    bool busy_ = false;  // with what must not meet another tree half-way
    bool scheduled_ = false;
    std::optional<Id> pressed_;
    Attention attention_;
    std::optional<QPointF> pointer_;
    std::optional<Id> focusedField_;
    std::map<Id, OnHover> hovered_;
    std::set<Id> revealed_;
};

}  // namespace kit
