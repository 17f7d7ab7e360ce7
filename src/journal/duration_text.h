#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvane {

// The German duration text between two date-times (days since 1899-12-30), for example
// "1 Min. 5 Sek. "; every piece ends with a blank. A year counts 365 days, a month 30. Rounded
// to whole seconds; empty for none and for an end before the start.
std::string FormatDuration(double start, double end);

// The seconds that a duration text stands for, with or without its last blank; nothing for a text
// that FormatDuration does not make, such as "Besetzt" or an empty one.
std::optional<std::int64_t> ParseDuration(std::string_view text);

}  // namespace orvane
