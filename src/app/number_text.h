#pragma once

#include <cstdint>
#include <string_view>

namespace orvane {

// The number that a text begins with, blanks skipped: sign, digits, decimal point; 0 without one.
double LeadingNumber(std::string_view text);

// Rounded half to even. Throws PlatformError kErrorOverflow outside 32 bits.
std::int32_t RoundToInt32(double value);

// A text that is a whole number from 0 to 255. Throws PlatformError: kErrorTypeMismatch when it is
// no number, kErrorOverflow when it is out of range.
std::uint8_t ToByte(std::string_view text);

}  // namespace orvane
