#include "report/clock.h"

#include <array>
#include <cstdio>

namespace brennik {

std::tm SystemClock::Now() const {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local;
}

namespace {

// Two digits with a leading zero, as the day, hour and minute of a stamp are shown.
std::string TwoDigits(int value) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%02d", value);
    return text.data();
}

}  // namespace

std::string DateStamp(const std::tm& t, bool withYear) {
    std::array<char, 64> month{};
    const std::size_t length = std::strftime(month.data(), month.size(), "%b", &t);
    std::string stamp = TwoDigits(t.tm_mday) + "-" + std::string(month.data(), length);
    if (withYear) {
        stamp += "-" + std::to_string(t.tm_year + 1900);
    }
    return stamp;
}

std::string TimeStamp(const std::tm& t, bool twelveHour) {
    if (!twelveHour) {
        return TwoDigits(t.tm_hour) + ":" + TwoDigits(t.tm_min);
    }
    // The AM/PM marker is fixed English text, whatever the locale: only the month name follows
    // the system's settings.
    const int hour = t.tm_hour % 12 == 0 ? 12 : t.tm_hour % 12;
    return TwoDigits(hour) + ":" + TwoDigits(t.tm_min) + (t.tm_hour < 12 ? " AM" : " PM");
}

}  // namespace brennik
