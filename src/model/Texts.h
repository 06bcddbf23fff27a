#pragma once

#include <string>
#include <vector>

#include "model/HourFormat.h"
#include "model/Row.h"
#include "time/Instant.h"

/// The texts made from an instant. Each is in the zone of its row, in English with the day before
/// the month, whatever the machine's locale.
namespace noonward {

/// The local clock time: "19:05", "7:05 PM".
std::string timeText(Instant at, const Row& row, HourFormat format);

/// The local date: "Tue 4 Mar".
std::string dateText(Instant at, const Row& row);

/// The same for a day without a zone; its key for one that no month has.
std::string dateText(DayKey day);

/// A row's offset from home: "+5h", "−3:30"; empty when they are equal.
std::string offsetText(const Row& row, const Row& home, Instant at);

/// The heading of an hour cell: "9", "9a".
std::string hourText(int hour, HourFormat format);

/// A meeting, from start to end: "14:00–14:30".
struct Meeting {
    Instant from;
    int minutes;
};
std::string rangeText(const Meeting& meeting, const Row& row, HourFormat format);

/// One line: "London 14:00  ·  New York 09:00".
std::string summaryText(Instant at, const std::vector<Row>& rows, HourFormat format);

/// A line for each row, for a chat: "London 14:00 Tue 4 Mar (GMT)".
std::string plainText(Instant at, const std::vector<Row>& rows, HourFormat format);

/// A heading and a line for each row, for an email: "London: 14:00–14:30 GMT, Tue 4 Mar". The date
/// is the start's.
std::string emailText(const Meeting& meeting, const std::vector<Row>& rows, HourFormat format);

}  // namespace noonward
