#include "app/AppDelegate.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWindow>

#include "app/Render.h"
#include "model/Store.h"
#include "platform/Appearance.h"
#include "platform/ClockChanges.h"
#include "platform/Keyboard.h"
#include "platform/LoginItem.h"
#include "platform/MainQueue.h"
#include "platform/PressesElsewhere.h"
#include "platform/Screens.h"
#include "platform/Session.h"
#include "views/theme/WidgetLook.h"

namespace noonward {
namespace {

constexpr int keyT = 17;
constexpr std::uint32_t toggleKey = 1;

std::unique_ptr<kit::FirstClickHostingView> hosting(kit::Animations& animations,
                                                    kit::FirstClickHostingView::Body body) {
    return std::make_unique<kit::FirstClickHostingView>(animations, rootEnvironment(),
                                                        std::move(body));
}

// The shadow goes to the sides and down; above, the panel touches the notch.
QMargins shadowRoom() {
    const kit::Insets reach = kit::reach(panelShadow());
    return {qCeil(reach.left()), 0, qCeil(reach.right()), qCeil(reach.below())};
}

// The opened notch is centred on its window, and for a moment wider.
QMargins overshootRoom() {
    const int beside =
        qCeil(PanelWindows::opening().overshoot() * (NotchUI::ear + NotchUI::shoulder));
    return {beside, 0, beside, 0};
}

Backing backingFor(WindowSystem::Translucency translucency) {
    switch (translucency) {
        case WindowSystem::Translucency::none:
            return Backing::square;
        case WindowSystem::Translucency::clear:
            return Backing::clear;
        case WindowSystem::Translucency::blurred:
            return Backing::frosted;
    }
    return Backing::square;
}

}  // namespace

AppDelegate::AppDelegate(Planner& planner, Geocoder& geocoder, const Desktop& desktop)
    : store_(planner.store),
      ui_(planner.ui),
      desktop_(desktop),
      copying_(store_, ui_, desktop.pasteboard, desktop.queue, [this] { return scheme(); }),
      notchView_(store_, ui_),
      panelHost_(store_, ui_,
                 {.animations = animations_,
                  .holidays = planner.holidays,
                  .loginItem = &desktop.loginItem,
                  .geocoder = &geocoder},
                 [this] { copying_.copyInvite(); }),
      cap_(desktop.windows, hosting(animations_, [this] { return notchView_.body(); }),
           {.level = WindowSystem::Level::cap,
            .title = QStringLiteral("Noonward at the notch"),
            .room = overshootRoom(),
            .outlined = true}),
      panel_(desktop.windows,
             hosting(animations_, [this] { return panelHost_.body(scheme(), backing_); }),
             {.level = WindowSystem::Level::panel,
              .title = QStringLiteral("Noonward"),
              .shadow = shadowRoom(),
              .blurred = panelOutline,
              .onShow =
                  [this](WindowSystem::Translucency translucency) {
                      backing_ = backingFor(translucency);
                      panel_.content().invalidate();
                  }}),
      windows_({cap_, panel_, store_, ui_, animations_, desktop.queue, desktop.screens,
                desktop.pointer, desktop.feedback}),
      updates_(ui_, windows_, desktop.updater),
      keys_(store_, ui_, desktop.queue,
            {.closePanel = [this] { windows_.closePanel(); },
             .layoutPanel = [this] { windows_.layoutPanel(); },
             .copyText = [this] { copying_.copyText(); },
             .copyPicture = [this] { copying_.copyPicture(); },
             .terminate = [this] { terminate(); },
             .caretToEnd = [this] { panel_.content().caretToEnd(); }}),
      grid_(store_, ui_),
      hotkey_(desktop.hotKeys, keyT, HotKeys::control | HotKeys::option, toggleKey,
              [this] { togglePanel(); }),
      hover_(windows_, ui_, desktop.pointer, desktop.timer) {
    animations_.setEnabled(desktop_.appearance.animations());
    dress();
    wireCallbacks();
    watchModel();
    watchDesktop();
    windows_.findNotch();
    panel_.windowHandle()->installEventFilter(this);
    panel_.content().installEventFilter(this);
    if (!store_.config().welcomed) firstRun();
}

// A copy that is only being tried out leaves the login as it is.
void AppDelegate::firstRun() {
    if (desktop_.installed) desktop_.loginItem.set(true);
    windows_.welcomeSoon();
}

void AppDelegate::wireCallbacks() {
    ui_.onTap = lifetime_.weakly([this] { togglePanel(); });
    ui_.onSettings =
        lifetime_.weakly([this] { windows_.openPanel(PanelWindows::Content::settings); });
    ui_.onUpdates = lifetime_.weakly([this] { updates_.check(); });
    ui_.onQuit = lifetime_.weakly([this] { terminate(); });
}

void AppDelegate::watchModel() {
    const auto layout = [this] { layoutSoon(); };
    const auto redrawn = [this] { redraw(); };
    watches_.push_back(store_.changes().subscribe(redrawn));
    watches_.push_back(ui_.changes().subscribe(redrawn));
    watches_.push_back(panelHost_.changes().subscribe(redrawn));

    NotchUI& ui = ui_;
    Store& store = store_;
    const auto onUi = [&](auto select) {
        watches_.push_back(whenChanged(ui_.changes(), select, layout));
    };
    const auto onStore = [&](auto select) {
        watches_.push_back(whenChanged(store_.changes(), select, layout));
    };
    onUi([&ui] { return ui.settingsShown(); });
    onUi([&ui] { return ui.welcomeShown(); });
    onStore([&store] { return store.config().places.size(); });
    onStore([&store] { return store.config().travel; });
    // Whatever else makes the content larger or smaller: a hidden row, a proposal, a longer text.
    panel_.content().onResized = layout;
}

void AppDelegate::watchDesktop() {
    // Hearing every press in the desktop has its price: only while there is something to close.
    watches_.push_back(whenChanged(
        ui_.changes(), [this] { return ui_.panelShown(); },
        [this] {
            pressWatch_ = ui_.panelShown()
                              ? desktop_.presses.onPress([this] { windows_.closePanel(); })
                              : Subscription();
        }));
    watches_.push_back(desktop_.session.onSignal("toggle", [this] { togglePanel(); }));
    watches_.push_back(desktop_.session.onSignal(
        "settings", [this] { windows_.openPanel(PanelWindows::Content::settings); }));
    watches_.push_back(desktop_.session.onEnd([this] { terminate(); }));
    watches_.push_back(desktop_.screens.onChange([this] {
        windows_.closePanel();
        windows_.findNotch();
        redraw();
    }));
    watches_.push_back(desktop_.clockChanges.onChange([this] { store_.refreshNow(); }));
    watches_.push_back(desktop_.appearance.onChange([this] {
        animations_.setEnabled(desktop_.appearance.animations());
        redraw();
    }));
}

void AppDelegate::dress() {
    if (dressed_ == scheme()) return;
    dressed_ = scheme();
    dressWidgets(*dressed_);
}

void AppDelegate::redraw() {
    dress();
    cap_.content().invalidate();
    panel_.content().invalidate();
}

// However much of one change asks for it, once.
void AppDelegate::layoutSoon() {
    if (layoutPending_) return;
    layoutPending_ = true;
    desktop_.queue.post(lifetime_.weakly([this] {
        layoutPending_ = false;
        windows_.layoutPanel();
    }));
}

// Whoever had the keys before the panel has them again.
void AppDelegate::terminate() {
    panel_.orderOut();
    QCoreApplication::quit();
}

Scheme AppDelegate::scheme() const {
    const std::string& wanted = store_.config().appearance;
    if (wanted == "light") return Scheme::light;
    if (wanted == "dark") return Scheme::dark;
    return desktop_.appearance.dark() ? Scheme::dark : Scheme::light;
}

// Keys are seen as they come to the window, before it hands them to a view; the mouse as it comes
// to the view. What a key or a click has changed is there, field by field, before the next one is
// handed to anything, however soon it follows.
bool AppDelegate::eventFilter(QObject* watched, QEvent* event) {
    if (watched == panel_.windowHandle()) {
        if (event->type() == QEvent::MouseButtonPress) {
            panel_.makeKey();
            panel_.content().refresh();
        }
        return event->type() == QEvent::KeyPress && keyMonitor(*event);
    }
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::MouseButtonRelease:
            return mouseMonitor(*event);
        default:
            return false;
    }
}

bool AppDelegate::keyMonitor(QEvent& event) {
    // A menu of ours, such as a text field's, has the keys to itself.
    if (!panel_.visible() || QApplication::activePopupWidget()) return false;
    panel_.content().refresh();
    return keys_.handleKey(desktop_.keyboard.read(static_cast<QKeyEvent&>(event)));
}

bool AppDelegate::mouseMonitor(QEvent& event) {
    const auto& mouse = static_cast<QMouseEvent&>(event);
    const QPointF at = panel_.content().inView(mouse.position());
    switch (event.type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            // What can be pressed by itself is, wherever it lies.
            if (mouse.button() != Qt::LeftButton || panel_.content().hasControlAt(at)) return false;
            if (!grid_.press(at)) return false;
            panel_.content().setCursor(Qt::ClosedHandCursor);
            return true;
        case QEvent::MouseMove:
            return (mouse.buttons() & Qt::LeftButton) && grid_.move(at);
        default:
            if (mouse.button() != Qt::LeftButton || !grid_.release()) return false;
            panel_.content().pointAt(at);
            return true;
    }
}

}  // namespace noonward
