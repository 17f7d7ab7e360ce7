#pragma once

#include <cstdint>
#include <string>

#include "platform/clock.h"
#include "platform/text/day_numbers.h"

namespace orvane {

// "mm/dd/yyyy hh:nn:ss", whatever the user's locale.
std::string TimeText(const LocalTime& time);

// Days since 1899-12-30 with the time of day as fraction; fractions of a second are dropped.
double ToDateTime(const LocalTime& time);

// Seconds since midnight with fractions.
double SecondsOfDay(const LocalTime& time);

}  // namespace orvane
