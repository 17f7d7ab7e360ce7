#include "app/number_text.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "app/error_report.h"
#include "platform/errors.h"

namespace orvane {
namespace {

std::string WithoutBlanks(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c != ' ' && c != '\t' && c != '\r' && c != '\n') result += c;
  }
  return result;
}

// The value of the longest numeric beginning; `used` is how many characters it took.
double ParseNumber(std::string_view text, std::size_t& used) {
  const bool plus = !text.empty() && text.front() == '+';
  const std::string_view digits = plus ? text.substr(1) : text;
  double value = 0;
  used = 0;
  const bool numeric = digits.find_first_of("0123456789") <= 2;
  if (!numeric || (plus && digits.front() == '-')) return 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value,
                                            std::chars_format::fixed);
  if (error == std::errc::result_out_of_range) {
    value = std::numeric_limits<double>::infinity();
  } else if (error != std::errc()) {
    return 0;
  }
  used = static_cast<std::size_t>(end - text.data());
  return value;
}

[[noreturn]] void ThrowOverflow() {
  throw PlatformError(kErrorOverflow, "Überlauf");
}

}  // namespace

double LeadingNumber(std::string_view text) {
  std::size_t used = 0;
  return ParseNumber(WithoutBlanks(text), used);
}

std::int32_t RoundToInt32(double value) {
  const double rounded = std::nearbyint(value);
  if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
        rounded <= std::numeric_limits<std::int32_t>::max())) {
    ThrowOverflow();
  }
  return static_cast<std::int32_t>(rounded);
}

std::uint8_t ToByte(std::string_view text) {
  const std::string digits = WithoutBlanks(text);
  std::size_t used = 0;
  const double value = ParseNumber(digits, used);
  if (digits.empty() || used != digits.size()) {
    throw PlatformError(kErrorTypeMismatch, "Typen unverträglich");
  }
  const std::int32_t rounded = RoundToInt32(value);
  if (rounded < 0 || rounded > std::numeric_limits<std::uint8_t>::max()) ThrowOverflow();
  return static_cast<std::uint8_t>(rounded);
}

}  // namespace orvane
