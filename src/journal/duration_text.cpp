#include <cmath>
#include <string>

#include "app/date_time.h"
#include "journal/call_logger.h"

namespace orvane {
namespace {

// Fixed lengths: the text is a rough measure, not a calendar difference.
constexpr std::int64_t kDaysPerYear = 365;
constexpr std::int64_t kDaysPerMonth = 30;

std::string Piece(std::int64_t number, const std::string& unit) {
  return number > 0 ? std::to_string(number) + " " + unit + " " : std::string();
}

std::string CountedPiece(std::int64_t number, const std::string& unit) {
  return Piece(number, number > 1 ? unit + "e" : unit);
}

}  // namespace

std::string FormatDuration(double start, double end) {
  // Whole seconds first: the difference of two moments a whole number of days apart is a hair off.
  const double exactSeconds = (end - start) * static_cast<double>(kSecondsPerDay);
  const std::int64_t total = exactSeconds > 0 ? std::llround(exactSeconds) : 0;
  const std::int64_t wholeDays = total / kSecondsPerDay;
  const std::int64_t seconds = total % kSecondsPerDay;
  const std::int64_t years = wholeDays / kDaysPerYear;
  const std::int64_t months = wholeDays % kDaysPerYear / kDaysPerMonth;
  const std::int64_t days = wholeDays - (months * kDaysPerMonth + years * kDaysPerYear);
  return CountedPiece(years, "Jahr") + CountedPiece(months, "Monat") + CountedPiece(days, "Tag") +
         Piece(seconds / 3600, "Std.") + Piece(seconds / 60 % 60, "Min.") +
         Piece(seconds % 60, "Sek.");
}

}  // namespace orvane
