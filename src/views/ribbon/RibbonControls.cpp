#include "views/ribbon/RibbonControls.h"

#include <utility>

#include "kit/Description.h"
#include "kit/Interaction.h"
#include "kit/Shapes.h"
#include "kit/Stacks.h"
#include "kit/Text.h"
#include "views/theme/Fonts.h"
#include "views/theme/Symbols.h"

namespace noonward {

using namespace kit;

namespace {

View durationButton(const RibbonContext& context, int length) {
    Store& store = context.store;
    const bool selected = length == store.duration();
    const bool hour = length == 60;
    const std::string number = std::to_string(length);
    return text(hour ? "1 h" : number)
        .font(hanken(12, selected ? Weight::bold : Weight::medium))
        .colour(selected ? white : context.palette.mist)
        .frame({.width = 32, .height = 24})
        .background(roundedRectangle(6).fill(selected ? context.palette.button : clear))
        .described({.role = Role::button, .name = hour ? "1 hour" : number + " minutes"})
        .choice(selected, [&store, length] { store.setDuration(length); })
        .tooltip((hour ? "1 hour" : number + " minutes") + " meeting (d)");
}

View dayButton(Store& store, SymbolSource direction, int by, const char* tip) {
    return symbol(direction)
        .frame({.width = 20, .height = 20})
        .button([&store, by] { store.changeDay(by); }, PressKeys::space)
        .tooltip(tip);
}

}  // namespace

View nudge(const Palette& palette, SymbolSource direction, const std::string& title, bool trailing,
           const std::string& name, std::function<void()> action) {
    const View picture = symbol(direction);
    const View word = text(title);
    return hstack({.spacing = 4}, trailing ? Views{word, picture} : Views{picture, word})
        .font(hanken(12, Weight::semibold))
        .colour(palette.text)
        .padding({.horizontal = 10, .vertical = 6})
        .background(roundedRectangle(8).fill(palette.chip).strokeInside(palette.chipBorder, 1))
        .described({.role = Role::button, .name = name})
        .button(std::move(action), PressKeys::space);
}

View durationPicker(const RibbonContext& context) {
    const Palette& palette = context.palette;
    return hstack({.spacing = 2},
                  {
                      forEach(
                          Store::durations, [](int length) { return length; },
                          [&](int length) { return durationButton(context, length); }),
                  })
        .padding({.horizontal = 2, .vertical = 2})
        .background(roundedRectangle(8).fill(palette.chip).strokeInside(palette.chipBorder, 1));
}

View daySwitcher(const RibbonContext& context) {
    Store& store = context.store;
    const int offset = store.dayOffset();
    const bool today = offset == 0;
    const std::string date = store.date(store.shownDay(), context.home);
    return hstack({.spacing = 6},
                  {
                      dayButton(store, Symbols::chevronLeft, -1, "Previous day ([)"),
                      text(today ? "Today · " + date : date)
                          .font(hanken(13, Weight::semibold))
                          .colour(today ? context.palette.mist : context.palette.text)
                          .frame({.minWidth = 112}),
                      dayButton(store, Symbols::chevronRight, 1, "Next day (])"),
                      when(!today,
                           [&] {
                               return text("Today")
                                   .font(hanken(12, Weight::semibold))
                                   .colour(context.palette.fair)
                                   .button([&store] { store.changeDay(-store.dayOffset()); },
                                           PressKeys::space)
                                   .tooltip("Back to today");
                           }),
                  });
}

View copyButton(const RibbonContext& context) {
    return hstack({.spacing = 6},
                  {
                      symbol(Symbols::envelope),
                      text("Copy for email"),
                  })
        .font(hanken(13, Weight::semibold))
        .colour(white)
        .padding({.horizontal = 14, .vertical = 7})
        .background(
            roundedRectangle(10).fill(context.palette.button).strokeInside(white.opacity(0.35), 1))
        .button(context.onCopyInvite, PressKeys::space)
        .tooltip("Copies each place's hour, start to end, ready to paste into an email");
}

}  // namespace noonward
