#pragma once

#include <optional>
#include <string_view>

namespace orvane {

// The date number (days since 1899-12-30, the time of day as fraction) for "mm/dd/yyyy" or
// "mm/dd/yyyy hh:nn:ss", years 100 to 9999. Equal texts give the identical number. Before
// 1899-12-30 the fraction counts away from zero, as date numbers do. Nothing for any other text and
// for a date that does not exist.
std::optional<double> ParseJetDate(std::string_view text);

}  // namespace orvane
