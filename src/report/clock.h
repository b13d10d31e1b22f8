// The present date and time as the report stamps them. Injectable, so that a test or the
// headless runner can fix the moment and every report comes out the same.
#pragma once

#include <ctime>
#include <string>

namespace brennik {

class Clock {
public:
    virtual ~Clock() = default;
    // Local date and time, fields as std::tm holds them.
    virtual std::tm Now() const = 0;
};

class SystemClock final : public Clock {
public:
    std::tm Now() const override;
};

class FixedClock final : public Clock {
public:
    explicit FixedClock(const std::tm& moment) : moment_(moment) {}
    std::tm Now() const override { return moment_; }

private:
    std::tm moment_;
};

// The date of a stamp: "06-Apr-1999", or "06-Apr" without the year. The month is the
// abbreviated name of the C library's current LC_TIME locale.
std::string DateStamp(const std::tm& t, bool withYear);

// The time of a stamp: "08:16 PM" on the 12-hour clock (00:05 is "12:05 AM"), or "20:16".
std::string TimeStamp(const std::tm& t, bool twelveHour);

}  // namespace brennik
