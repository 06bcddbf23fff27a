#include "app/Copying.h"

#include <chrono>
#include <utility>

#include "app/Render.h"
#include "model/Store.h"
#include "platform/MainQueue.h"
#include "platform/Pasteboard.h"
#include "views/ribbon/RibbonPanel.h"

namespace noonward {

using namespace std::chrono_literals;

Copying::Copying(Store& store, NotchUI& ui, Pasteboard& pasteboard, MainQueue& queue,
                 std::function<Scheme()> panelScheme)
    : store_(store),
      ui_(ui),
      pasteboard_(pasteboard),
      queue_(queue),
      panelScheme_(std::move(panelScheme)) {}

void Copying::copyText() {
    pasteboard_.setText(store_.asText(store_.focus()));
    flash("Copied the times as text — paste them into a message");
}

void Copying::copyPicture() {
    const RibbonPanel panel(store_, ui_, {.solid = true, .hints = false});
    const QByteArray picture = render(panel.body(panelScheme_()));
    if (picture.isEmpty()) return;
    pasteboard_.setPng(picture);
    flash("Copied as a picture — paste it to the people in the meeting");
}

void Copying::copyInvite() {
    const Instant start =
        store_.proposal() ? *store_.proposal() : store_.instant(store_.fairestCol());
    pasteboard_.setText(store_.emailText(start));
    flash("Copied " + store_.range(start, store_.homeRow()) + " for " +
          std::to_string(store_.visiblePlaces().size()) + " places — paste it into the email");
}

void Copying::flash(const std::optional<std::string>& message) {
    store_.flash = message;
    // By number and not by text: the same message shown twice has its full time twice.
    queue_.after(2500ms, lifetime_.weakly([this, message, number = ++flashes_] {
        if (number == flashes_ && store_.flash() == message) store_.flash = std::nullopt;
    }));
}

}  // namespace noonward
