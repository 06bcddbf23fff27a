#include "platform/x11/X11WindowSystem.h"

#include <xcb/shape.h>

#include <QWidget>
#include <algorithm>
#include <vector>

namespace noonward {
namespace {

constexpr const char* blurProperty = "_KDE_NET_WM_BLUR_BEHIND_REGION";

xcb_window_t idOf(const QWidget& window) {
    return static_cast<xcb_window_t>(window.internalWinId());
}

// A region of the window, in device pixels; edges between two pixels go to the nearer one.
std::vector<QRect> inPixels(const QWidget& window, const QRegion& region) {
    const double scale = window.devicePixelRatioF();
    std::vector<QRect> result;
    for (const QRect& rect : region) {
        const QRectF scaled(QPointF(rect.topLeft()) * scale, QSizeF(rect.size()) * scale);
        result.push_back(scaled.toRect());
    }
    return result;
}

}  // namespace

X11WindowSystem::X11WindowSystem(X11& x11, X11Stack& stack, X11PressesElsewhere& presses)
    : x11_(x11), stack_(stack), focus_(x11, presses) {}

// KWin lists the property of its blur effect among the root's own while the effect is switched on.
X11WindowSystem::Translucency X11WindowSystem::translucency() const {
    if (!x11_.compositing()) return Translucency::none;
    const Reply<xcb_list_properties_reply_t> listed(xcb_list_properties_reply(
        x11_.connection(), xcb_list_properties(x11_.connection(), x11_.root()), nullptr));
    if (!listed) return Translucency::clear;
    const xcb_atom_t* atoms = xcb_list_properties_atoms(listed.get());
    const xcb_atom_t* end = atoms + xcb_list_properties_atoms_length(listed.get());
    return std::find(atoms, end, x11_.atom(blurProperty)) == end ? Translucency::clear
                                                                 : Translucency::blurred;
}

void X11WindowSystem::adopt(QWidget& window, Level level) {
    window.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint);
    window.setAttribute(Qt::WA_TranslucentBackground);
    window.setAttribute(Qt::WA_ShowWithoutActivating);
    const auto id = static_cast<xcb_window_t>(window.winId());
    stack_.keep(id, level == Level::cap ? X11Stack::Layer::cap : X11Stack::Layer::panel);
    QObject::connect(&window, &QObject::destroyed, &context_, [this, id] { stack_.forget(id); });
}

void X11WindowSystem::raise(QWidget& window) {
    stack_.raise(idOf(window));
}

void X11WindowSystem::setInputRegion(QWidget& window, const QRegion& region) {
    std::vector<xcb_rectangle_t> rectangles;
    for (const QRect& rect : inPixels(window, region))
        rectangles.push_back(
            {static_cast<std::int16_t>(rect.x()), static_cast<std::int16_t>(rect.y()),
             static_cast<std::uint16_t>(rect.width()), static_cast<std::uint16_t>(rect.height())});
    x11_.ignoreError(xcb_shape_rectangles_checked(
        x11_.connection(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED,
        idOf(window), 0, 0, static_cast<std::uint32_t>(rectangles.size()), rectangles.data()));
    xcb_flush(x11_.connection());
}

// KWin's property: the rectangles one after the other. An empty one would mean the whole window.
void X11WindowSystem::setBlurBehind(QWidget& window, const QRegion& region) {
    const xcb_atom_t property = x11_.atom(blurProperty);
    std::vector<std::uint32_t> numbers;
    for (const QRect& rect : inPixels(window, region))
        for (const int number : {rect.x(), rect.y(), rect.width(), rect.height()})
            numbers.push_back(static_cast<std::uint32_t>(number));
    x11_.ignoreError(numbers.empty()
                         ? xcb_delete_property_checked(x11_.connection(), idOf(window), property)
                         : xcb_change_property_checked(
                               x11_.connection(), XCB_PROP_MODE_REPLACE, idOf(window), property,
                               XCB_ATOM_CARDINAL, 32, static_cast<std::uint32_t>(numbers.size()),
                               numbers.data()));
    xcb_flush(x11_.connection());
}

void X11WindowSystem::takeKeys(QWidget& window) {
    focus_.take(window);
}

void X11WindowSystem::giveKeysBack(QWidget& window) {
    focus_.giveBack(window);
}

}  // namespace noonward
