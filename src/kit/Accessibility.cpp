#include "kit/Accessibility.h"

#include <QAccessible>

#include "kit/AccessibleElement.h"
#include "kit/AccessibleView.h"

namespace kit {
namespace {

QAccessibleInterface* make(const QString&, QObject* object) {
    if (auto* view = dynamic_cast<FirstClickHostingView*>(object)) return new AccessibleView(*view);
    auto* keys = dynamic_cast<ButtonKeys*>(object);
    auto* view = keys ? dynamic_cast<FirstClickHostingView*>(keys->parentWidget()) : nullptr;
    return view ? new AccessibleElement(*view, *keys) : nullptr;
}

}  // namespace

void installAccessibility() {
    QAccessible::installFactory(make);
}

}  // namespace kit
