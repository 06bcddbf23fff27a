#include "views/settings/WeekEditor.h"

#include <array>
#include <functional>
#include <vector>

#include "base/Unicode.h"
#include "holidays/Holidays.h"
#include "kit/Description.h"
#include "kit/Flow.h"
#include "kit/Paragraph.h"
#include "kit/Shapes.h"
#include "kit/Stacks.h"
#include "kit/Symbol.h"
#include "kit/Text.h"
#include "kit/TextField.h"
#include "model/PlaceEditing.h"
#include "model/Texts.h"
#include "model/Weekdays.h"
#include "reference/Country.h"
#include "views/settings/SettingsControls.h"
#include "views/settings/SettingsState.h"
#include "views/theme/Fonts.h"
#include "views/theme/Pill.h"
#include "views/theme/Symbols.h"

namespace noonward {

using namespace kit;

namespace {

constexpr std::array mondayFirst{2, 3, 4, 5, 6, 7, 1};  // 1 = Sunday

/// What the parts of the editor share while it is built.
struct Editor {
    std::shared_ptr<SettingsState> state;
    const Palette& palette;
    PlaceIdentity place;
    const Row& row;
    const Place& stored;

    std::function<void()> edits(SettingsState::Edit change) const {
        return [state = state, place = place, change = std::move(change)] {
            state->edit(place, change);
        };
    }
};

View caption(const char* words) {
    return text(words).font(hanken(13)).frame({.width = 64, .alignment = leading});
}

View hoursLine(const Editor& editor) {
    const auto step = [&](bool start, const char* what, double value) {
        const auto can = [&editor, start](double by) {
            return editing::nudged(editor.row.work, start, by) != editor.row.work;
        };
        return stepper(editor.palette, what, value, can,
                       [state = editor.state, place = editor.place, start](double by) {
                           state->edit(place, [start, by](Store& store, int index) {
                               store.nudgeWork(index, start, by);
                           });
                       });
    };
    return hstack({.spacing = 10}, {
                                       caption("Hours"),
                                       step(true, "Start of work", editor.row.work.start),
                                       text("–").font(hanken(13)).colour(editor.palette.mist),
                                       step(false, "End of work", editor.row.work.end),
                                   });
}

View dayToggle(const Editor& editor, int weekday) {
    const bool works = editor.row.workdays.contains(weekday);
    const std::string name(weekdayName(weekday));
    const Shape ground = works ? roundedRectangle(8).fill(editor.palette.button)
                               : roundedRectangle(8)
                                     .fill(editor.palette.chip)
                                     .strokeInside(editor.palette.chipBorder, 1);
    return text(name.substr(0, 1))
        .font(hanken(12, Weight::bold))
        .colour(works ? white : editor.palette.text)
        .frame({.width = 28, .height = 28})
        .background(ground)
        .tooltip(name)
        .described({.role = Role::button, .name = name})
        .toggle(works, editor.edits([weekday](Store& store, int index) {
            store.toggleWorkday(index, weekday);
        }));
}

View daysLine(const Editor& editor) {
    return hstack({.spacing = 10},
                  {
                      caption("Days"),
                      hstack({.spacing = 4},
                             {
                                 forEach(
                                     mondayFirst, [](int day) { return day; },
                                     [&](int day) { return dayToggle(editor, day); }),
                             }),
                  });
}

std::string nextHolidays(const Editor& editor, const std::string& country) {
    std::string line;
    const DayKey today = editor.row.cal.dayKey(editor.state->store.now());
    for (const auto& [day, holiday] : editor.state->services.holidays.upcoming(country, today, 3)) {
        if (!line.empty()) line += " · ";
        line += shortDate(day.text()) + " " + holiday.name;
    }
    return line;
}

std::string holidayStatus(const Editor& editor, bool on) {
    const std::optional<std::string> country = Country::code(editor.row.tz.identifier());
    if (!country) return "No country for this time zone.";
    const std::string name = Country::name(*country);
    const Holidays& holidays = editor.state->services.holidays;
    if (!on) return "Off — " + name + "'s holidays are left out.";
    if (holidays.isMissing(*country)) return "No holiday calendar found for " + name;
    if (!holidays.days(*country)) return "Fetching " + name + "'s holidays…";
    return name + ", from Google's public calendar. Next: " + nextHolidays(editor, *country);
}

View publicHolidays(const Editor& editor) {
    const bool on = editor.stored.holidays.value_or(true);
    const auto turn = [state = editor.state, place = editor.place](bool wanted) {
        state->rearrange(place,
                         [wanted](Store& store, int index) { store.setHolidays(index, wanted); });
    };
    const std::string status = holidayStatus(editor, on);
    return vstack(
        {.align = Horizontal::leading, .spacing = 4},
        {
            labelledSwitch(editor.palette, text("Public holidays").font(hanken(13)), on, turn)
                .tooltip("Count the country's public holidays as days off"),
            paragraph(status).font(hanken(12)).colour(editor.palette.mist),
        });
}

View dayOffChip(const Editor& editor, const std::string& key) {
    return hstack({.spacing = 5},
                  {
                      text(shortDate(key)).font(hanken(12)),
                      symbol(Symbols::cross).font(systemFont(8)),
                  })
        .padding({.horizontal = 8, .vertical = 4})
        .background(chipGround(editor.palette, 7))
        .tooltip("Remove this day off")
        .button(editor.edits([key](Store& store, int index) { store.removeDayOff(index, key); }),
                PressKeys::space);
}

View newDayOff(const Editor& editor) {
    const auto state = editor.state;
    const auto add = [state, place = editor.place] {
        const QDate day = state->newDayOff();
        const std::string key = DayKey(day.year(), day.month(), day.day()).text();
        state->edit(place, [&](Store& store, int index) { store.addDayOff(index, key); });
    };
    return hstack(
        {.spacing = 8},
        {
            dateField({.name = "New day off",
                       .day = state->newDayOff(),
                       .onChange = [state](QDate day) { state->newDayOff = day; }})
                .font(hanken(13))
                .padding({.horizontal = 10, .vertical = 5})
                .background(chipGround(editor.palette, 8))
                .fieldBox()
                .tooltip("The day to add: type it, or change each part with ↑ ↓"),
            pill(editor.palette, "Add", false, add, PressKeys::space).tooltip("Add this day off"),
        });
}

View daysOff(const Editor& editor) {
    const std::vector<std::string> keys =
        editor.stored.daysOff.value_or(std::vector<std::string>());
    const std::string note = "Office closures or leave that count as days off for " +
                             unicode::isolated(editor.row.label) + ".";
    return vstack({.align = Horizontal::leading, .spacing = 6},
                  {
                      hstack({.spacing = 8},
                             {
                                 text("Days off").font(hanken(13)).priority(1),
                                 text(note).font(hanken(12)).colour(editor.palette.mist),
                             }),
                      when(!keys.empty(),
                           [&] {
                               return flow(6, {
                                                  forEach(keys, std::hash<std::string>(),
                                                          [&](const std::string& key) {
                                                              return dayOffChip(editor, key);
                                                          }),
                                              });
                           }),
                      newDayOff(editor),
                  });
}

View resetButton(const Editor& editor) {
    const auto country = Country::code(editor.row.tz.identifier());
    const bool usual = Country::workingDays(country) == std::vector<int>{2, 3, 4, 5, 6};
    return pill(editor.palette,
                std::string("Back to 8–18, ") + (usual ? "Monday to Friday" : "the usual week") +
                    ", with holidays",
                false, editor.edits([](Store& store, int index) { store.resetWeek(index); }),
                PressKeys::space)
        .tooltip("Undo what was changed here; days off stay");
}

}  // namespace

std::string shortDate(const std::string& key) {
    const auto day = DayKey::parse(key);
    return day ? dateText(*day) : key;
}

View weekEditor(const std::shared_ptr<SettingsState>& state, const Palette& palette,
                PlaceIdentity place, const Row& row) {
    const Editor editor{state, palette, place, row,
                        state->store.config().places[static_cast<std::size_t>(row.id)]};
    return vstack({.align = Horizontal::leading, .spacing = 10},
                  {
                      hstack({}, {text(row.label), text(" — working week").priority(1)})
                          .font(hanken(13, Weight::semibold)),
                      hoursLine(editor),
                      daysLine(editor),
                      publicHolidays(editor),
                      daysOff(editor),
                      resetButton(editor),
                  })
        .padding({.horizontal = 12, .top = 2, .bottom = 6});
}

}  // namespace noonward
