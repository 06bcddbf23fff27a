#include "model/DayOffNotes.h"

#include <algorithm>
#include <cstddef>

#include "base/Unicode.h"
#include "model/Phase.h"

namespace noonward {

namespace {

struct Note {
    std::string text;
    std::string labels;
    std::size_t count;
};

void take(std::vector<Note>& notes, const std::string& text, const std::string& label) {
    const auto same = std::find_if(notes.begin(), notes.end(),
                                   [&](const Note& note) { return note.text == text; });
    if (same == notes.end()) {
        notes.push_back({text, label, 1});
    } else {
        same->labels += ", " + label;
        ++same->count;
    }
}

}  // namespace

std::vector<std::string> dayOffNotes(const std::vector<Row>& rows, Instant at,
                                     const HolidayLookup& holidays) {
    std::vector<Note> notes;
    for (const Row& row : rows)
        if (const auto day = dayOff(row, at, holidays))
            take(notes, (day->off() ? "" : "maybe ") + day->name(), unicode::isolated(row.label));

    std::vector<std::string> texts;
    for (const Note& note : notes) {
        const bool everywhere = note.count > 1 && note.count == rows.size();
        texts.push_back(note.text + (everywhere ? " everywhere" : " in " + note.labels));
    }
    return texts;
}

}  // namespace noonward
