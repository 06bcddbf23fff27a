#include "views/ribbon/RibbonBar.h"

#include "base/Unicode.h"
#include "kit/Interaction.h"
#include "kit/Shapes.h"
#include "kit/Stacks.h"
#include "kit/Symbol.h"
#include "kit/Text.h"
#include "kit/TextField.h"
#include "views/ribbon/RibbonControls.h"
#include "views/theme/Fonts.h"
#include "views/theme/Symbols.h"

namespace noonward {

using namespace kit;

namespace {

View proposalControls(const RibbonContext& context) {
    Store& store = context.store;
    const Palette& palette = context.palette;
    return hstack({.spacing = 12},
                  {
                      durationPicker(context),
                      nudge(palette, Symbols::chevronLeft, "5 min", false, "5 minutes earlier",
                            [&store] { store.step(-5); })
                          .tooltip("Earlier by 5 minutes (←)"),
                      nudge(palette, Symbols::chevronRight, "5 min", true, "5 minutes later",
                            [&store] { store.step(5); })
                          .tooltip("Later by 5 minutes (→)"),
                      symbol(Symbols::crossInCircle)
                          .font(systemFont(15))
                          .button([&store] { store.backToNow(); }, PressKeys::space)
                          .tooltip("Clear the proposed time (n)"),
                      copyButton(context),
                  })
        .fixedSize();
}

View proposalLine(const RibbonContext& context, Instant proposal) {
    const Font semibold = hanken(14, Weight::semibold);
    return hstack({.spacing = 12},
                  {
                      symbol(Symbols::clockFilled),
                      text({
                          {.text = "Proposed   ",
                           .font = hanken(14, Weight::bold),
                           .colour = context.palette.proposed},
                          {.text = context.store.range(proposal, context.home) + " " +
                                   unicode::isolated(context.home.label),
                           .font = semibold},
                      }),
                      spacer(),
                      when(!context.solid, [&] { return proposalControls(context); }),
                  });
}

View fairestLine(const RibbonContext& context) {
    Store& store = context.store;
    const Instant fairest = store.instant(context.fair);
    const bool inView = context.columns.contains(context.fair);
    std::vector<TextRun> line{{.text = "Fairest hour   ",
                               .font = hanken(14, Weight::bold),
                               .colour = context.palette.fair}};
    if (!inView) {
        line.push_back({.text = store.date(fairest, context.home) + " · ",
                        .font = hanken(14, Weight::semibold)});
    }
    line.push_back({.text = store.summary(fairest), .font = hanken(14)});
    if (!inView) {
        line.push_back(
            {.text = "   f to go there", .font = hanken(12), .colour = context.palette.mist});
    }
    return hstack({.spacing = 12},
                  {
                      symbol(Symbols::people),
                      text(line),
                      spacer(),
                      when(!context.solid, [&] { return copyButton(context).fixedSize(); }),
                  });
}

View typingLine(const RibbonContext& context) {
    Store& store = context.store;
    return hstack(
        {.spacing = 12},
        {
            symbol(Symbols::clock),
            textField({
                          .text = *store.timeQuery(),
                          .placeholder = "6:15 India · 7:30am NY · 18:00 London",
                          .onEdit =
                              [&store](std::string typed) {
                                  store.timeQuery = std::move(typed);
                                  store.preview();
                              },
                          .onSubmit = [&store] { store.finishTyping(true); },
                          .focusOnAppear = true,
                      })
                .font(hanken(15, Weight::semibold))
                .tooltip("The time to propose (return keeps it, esc does not)"),
            spacer(),
            text(store.timeQueryValid() ? "return to keep · esc to cancel"
                                        : "a time, then a place — or leave the place out for home")
                .font(hanken(12))
                .colour(context.palette.mist)
                .priority(1),
        });
}

View mainLine(const RibbonContext& context) {
    if (context.store.timeQuery()) return form(0, typingLine(context));
    if (context.store.proposal()) return form(1, proposalLine(context, *context.store.proposal()));
    return form(2, fairestLine(context));
}

Colour outlineColour(const RibbonContext& context) {
    if (context.store.timeQuery()) return context.palette.fair;
    if (context.store.proposal()) return context.palette.selected.opacity(0.6);
    return context.palette.chipBorder;
}

View summaryLine(const RibbonContext& context) {
    const std::optional<Instant>& proposal = context.store.proposal();
    if (!proposal || context.store.timeQuery()) return {};
    return text(context.store.summary(*proposal)).font(hanken(13));
}

View daysOffLine(const RibbonContext& context) {
    Store& store = context.store;
    if (store.timeQuery()) return {};
    std::string line;
    for (const std::string& note :
         store.offNotes(store.proposal() ? *store.proposal() : store.instant(context.fair))) {
        line += (line.empty() ? "" : "  ") + note;
    }
    if (line.empty()) return {};
    return hstack({.spacing = 6},
                  {
                      symbol(Symbols::calendarWarning),
                      text(line),
                  })
        .font(hanken(12, Weight::semibold))
        .colour(context.palette.offText);
}

}  // namespace

View bar(const RibbonContext& context) {
    return vstack({.align = Horizontal::leading, .spacing = 6},
                  {
                      mainLine(context),
                      summaryLine(context),
                      daysOffLine(context),
                  })
        .padding({.horizontal = 16, .vertical = 11})
        .frame({.minHeight = 46})
        .background(roundedRectangle(14).strokeInside(outlineColour(context), 1));
}

}  // namespace noonward
