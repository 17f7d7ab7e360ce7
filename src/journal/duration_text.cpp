#include "journal/duration_text.h"

#include <array>
#include <charconv>
#include <cmath>

#include "platform/text/day_numbers.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

// Fixed lengths: the text is a rough measure, not a calendar difference.
struct Unit {
  std::int64_t seconds;
  std::string_view one;
  std::string_view many;
};
constexpr std::array<Unit, 6> kUnits{{{365 * kSecondsPerDay, "Jahr", "Jahre"},
                                      {30 * kSecondsPerDay, "Monat", "Monate"},
                                      {kSecondsPerDay, "Tag", "Tage"},
                                      {3600, "Std.", "Std."},
                                      {60, "Min.", "Min."},
                                      {1, "Sek.", "Sek."}}};

}  // namespace

std::string FormatDuration(double start, double end) {
  // Whole seconds first: the difference of two moments a whole number of days apart is a hair off.
  const double exactSeconds = (end - start) * static_cast<double>(kSecondsPerDay);
  std::int64_t left = exactSeconds > 0 ? std::llround(exactSeconds) : 0;
  std::string text;
  for (const Unit& unit : kUnits) {
    const std::int64_t number = left / unit.seconds;
    left %= unit.seconds;
    if (number == 0) continue;
    text += std::to_string(number) + " " + std::string(number == 1 ? unit.one : unit.many) + " ";
  }
  return text;
}

std::optional<std::int64_t> ParseDuration(std::string_view text) {
  const std::vector<std::string> words = Split(Trimmed(text, " "), ' ');
  if (words.size() % 2 != 0) return std::nullopt;
  std::int64_t seconds = 0;
  auto unit = kUnits.begin();
  for (std::size_t i = 0; i < words.size(); i += 2) {
    std::int32_t number = 0;
    const std::string& digits = words[i];
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc() || end != digits.data() + digits.size() || number < 1) {
      return std::nullopt;
    }
    // The units come in their order, each at most once.
    while (unit != kUnits.end() && words[i + 1] != (number == 1 ? unit->one : unit->many)) ++unit;
    if (unit == kUnits.end()) return std::nullopt;
    seconds += number * unit->seconds;
    ++unit;
  }
  return seconds;
}

}  // namespace orvane
