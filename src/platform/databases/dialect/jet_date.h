#pragma once

#include <optional>
#include <string_view>

namespace orvane {

struct DateAndTime {
  int year = 0;
  int month = 1;
  int day = 1;
  int hour = 0;
  int minute = 0;
  double second = 0;
};

// The date number: days since 1899-12-30, the time of day as fraction. Before that day the fraction
// counts away from zero, as date numbers do. Nothing for a date that does not exist or lies outside
// the years 100 to 9999.
std::optional<double> DateNumber(const DateAndTime& date);

// The date number for "mm/dd/yyyy" or "mm/dd/yyyy hh:nn:ss". Equal texts give the identical number.
// Nothing for any other text.
std::optional<double> ParseJetDate(std::string_view text);

}  // namespace orvane
