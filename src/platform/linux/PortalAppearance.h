#pragma once

#include <QDBusPendingCallWatcher>
#include <QVariant>
#include <memory>

#include "platform/Appearance.h"
#include "platform/linux/MessageBus.h"

namespace noonward {

/// The desktop's wishes by its settings portal (org.freedesktop.portal.Settings). The portal is
/// asked once and may take its time, or not be there at all; until it answers, and where it says
/// nothing, things are dark and move.
class PortalAppearance final : public Appearance {
 public:
    explicit PortalAppearance(SessionBus& bus);  ///< which must outlive this object

    bool dark() const override { return wishes_.dark; }
    bool animations() const override { return wishes_.animations; }
    [[nodiscard]] Subscription onChange(std::function<void()> action) override;

 private:
    struct Wishes {
        bool dark = true;
        bool animations = true;
        bool operator==(const Wishes&) const = default;
        /// Values of other types than the portal's documentation gives say nothing.
        void take(const QString& group, const QString& key, const QVariant& value);
    };

    void ask(QDBusConnection& bus);
    void takeAll(const QDBusMessage& answer);
    void takeChange(const QDBusMessage& signal);
    void set(const Wishes& wishes);

    Wishes wishes_;
    Announcer changes_;
    BusListener listener_;
    std::unique_ptr<QDBusPendingCallWatcher> question_;
};

}  // namespace noonward
