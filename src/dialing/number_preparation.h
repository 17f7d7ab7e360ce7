#pragma once

#include <string>
#include <string_view>

namespace orvane {

inline constexpr std::string_view kDigits = "0123456789";
// What may be typed into a number field.
inline constexpr std::string_view kNumberFieldCharacters = "0123456789 ()-/+-#*!";

// Keeps the characters of `text` that occur in `set` (keep) or that do not (not keep), in order.
// Letters are compared without regard to case.
std::string FilterChars(std::string_view text, std::string_view set, bool keep);

// The national dial form: own country prefix to a leading 0, other "+" to "00", separators removed.
std::string PrepareDialNumber(std::string_view text, std::string_view countryPrefix);

// The canonical international form without "+"; empty when it cannot be told because
// `countryPrefix` is not of the form "+49".
std::string NormalizeNumber(std::string_view text, std::string_view countryPrefix);

// Whether the digits of the text, read as a number, are greater than 0.
bool HoldsNumber(std::string_view text);

}  // namespace orvane
