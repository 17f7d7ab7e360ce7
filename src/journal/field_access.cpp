#include "journal/field_access.h"

#include <cmath>

#include "app/number_text.h"

namespace orvane {
namespace {

// Beyond this a double has no whole-number value in 64 bits.
constexpr double kMaxWholeNumber = 9.0e18;

std::int64_t Rounded(double value) {
  return std::abs(value) < kMaxWholeNumber ? std::llround(value) : 0;
}

}  // namespace

std::string TextField(const Recordset& rows, std::string_view name) {
  const DbValue value = rows.Field(name);
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return std::to_string(*whole);
  if (const auto* real = std::get_if<double>(&value)) return std::to_string(*real);
  return {};
}

std::int64_t IntegerOf(const DbValue& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return *whole;
  if (const auto* real = std::get_if<double>(&value)) return Rounded(*real);
  if (const auto* text = std::get_if<std::string>(&value)) return Rounded(LeadingNumber(*text));
  return 0;
}

}  // namespace orvane
