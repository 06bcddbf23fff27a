#include "views/ribbon/RibbonBottomLine.h"

#include "base/Unicode.h"
#include "kit/Description.h"
#include "kit/Interaction.h"
#include "kit/Stacks.h"
#include "kit/Symbol.h"
#include "kit/Text.h"
#include "views/ribbon/RibbonControls.h"
#include "views/theme/Pill.h"
#include "views/theme/Symbols.h"

namespace noonward {

using namespace kit;

namespace {

constexpr const char* hints =
    "Click an hour  ·  ← → nudge 5 min (⇧ an hour)  ·  drag the block  ·  type: 7:30am NY tue  ·  "
    "[ ] day  ·  d length  ·  n clear";

View message(const RibbonContext& context) {
    const std::optional<std::string>& flash = context.store.flash();
    if (flash) {
        return form(0, text(*flash)
                           .colour(context.palette.fair)
                           .described({.role = Role::notice, .name = *flash}));
    }
    return form(1, text(hints).colour(context.palette.mist));
}

// While the computer is away from home: the question from where to plan, or how it was answered
// and the way to change that.
View travelBanner(const RibbonContext& context) {
    Store& store = context.store;
    const Palette& palette = context.palette;
    const std::string here = unicode::isolated(store.hereName());
    const std::string home = unicode::isolated(store.homeName());
    const auto plan = [&](const std::string& title, bool fromHere, bool strong) {
        return pill(
                   palette, title, strong, [&store, fromHere] { store.planFromHere(fromHere); },
                   PressKeys::space)
            .tooltip("Days begin in " + (fromHere ? here : home) +
                     ", and the rows follow its clock");
    };
    const View airplane = symbol(Symbols::airplane).colour(palette.fair);

    if (store.travelUndecided()) {
        return form(0, hstack({.spacing = 10},
                              {
                                  airplane,
                                  text("This Mac is on " + here + " time.").colour(palette.text),
                                  plan("Plan from " + here, true, true),
                                  plan("Keep " + home, false, false),
                              }));
    }
    if (store.planningHere()) {
        return form(
            1, hstack({.spacing = 10},
                      {
                          airplane,
                          text("Planning from " + here + " while you travel").colour(palette.mist),
                          plan("Plan from " + home, false, false),
                      }));
    }
    return form(
        2, hstack({.spacing = 10},
                  {
                      airplane,
                      text("On " + here + " time · planning from " + home).colour(palette.mist),
                      plan("Plan from " + here, true, false),
                  }));
}

View updateNotice(const RibbonContext& context) {
    const std::string version = *context.ui.updateReady();
    return pill(
               context.palette, "Update to " + version, true,
               [&ui = context.ui] { ui.onUpdates(); }, PressKeys::space)
        .tooltip("Noonward " + version + " is ready (u)");
}

View settingsButton(const RibbonContext& context) {
    return hstack({.spacing = 6},
                  {
                      symbol(Symbols::gear),
                      text("Places & appearance"),
                  })
        .colour(context.palette.mist)
        .button([&ui = context.ui] { ui.settingsShown = true; }, PressKeys::space)
        .tooltip("Add, remove or pin places; light or dark (s)")
        .priority(1);
}

}  // namespace

View bottomLine(const RibbonContext& context) {
    const bool travelling =
        !context.store.flash() && context.store.away() && context.showsControls();
    return hstack({.spacing = 10},
                  {
                      travelling ? form(1, travelBanner(context)) : form(0, message(context)),
                      spacer(),
                      when(context.showsControls() && context.ui.updateReady().has_value(),
                           [&] { return updateNotice(context); }),
                      when(context.showsControls(), [&] { return settingsButton(context); }),
                  });
}

}  // namespace noonward
