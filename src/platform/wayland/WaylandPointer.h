#pragma once

#include <QObject>
#include <QPointer>
#include <memory>

#include "platform/Pointer.h"
#include "platform/wayland/WaylandLayers.h"

class QWidget;

namespace noonward {

/// The pointer as our windows are told of it: in all others a Wayland compositor keeps its place to
/// itself. It is waited for by a surface over the zone that nobody sees. That stays until the
/// pointer has left it or a window of ours lies there, or else nothing could tell that the pointer
/// rests.
class WaylandPointer final : public QObject, public Pointer {
 public:
    explicit WaylandPointer(WaylandLayers& layers);  ///< which must outlive this object
    ~WaylandPointer() override;

    std::optional<QPointF> position() const override { return position_; }
    void waitFor(const QRectF& zone, std::function<void()> entered) override;
    void stopWaiting() override;

 private:
    bool eventFilter(QObject* receiver, QEvent* event) override;
    void isAt(QObject* window, const QPointF& position);
    void hasLeft(const QObject* window);
    bool isInTrigger() const;
    void enteredZone();
    void giveWay();
    void disarmIfIdle();

    WaylandLayers& layers_;
    std::optional<QPointF> position_;
    QPointer<QObject> window_;  // the one that it is in
    QRectF zone_;
    std::function<void()> entered_;
    std::unique_ptr<QWidget> trigger_;
    Subscription changes_;
};

}  // namespace noonward
