#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace noonward {

/// Why a day is off in a place.
class DayOff {
 public:
    enum class Kind { weekend, holiday, regional, ownDay };

    /// `dayName` is the full weekday name, "Sunday" … "Saturday".
    static DayOff weekend(std::string dayName) { return {Kind::weekend, std::move(dayName), {}}; }
    static DayOff holiday(std::string name) { return {Kind::holiday, std::move(name), {}}; }
    static DayOff regional(std::string name, std::string region) {
        return {Kind::regional, std::move(name), std::move(region)};
    }
    static DayOff ownDay() { return {Kind::ownDay, "Day off", {}}; }

    Kind kind() const { return kind_; }
    const std::string& name() const { return name_; }
    const std::string& region() const { return region_; }  ///< empty unless regional
    /// False only for a holiday in part of the country: people there may be at work.
    bool off() const { return kind_ != Kind::regional; }

    bool operator==(const DayOff&) const = default;

 private:
    DayOff(Kind kind, std::string name, std::string region)
        : kind_(kind), name_(std::move(name)), region_(std::move(region)) {}

    Kind kind_;
    std::string name_;
    std::string region_;
};

}  // namespace noonward
