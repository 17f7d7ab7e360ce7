#include "dialing/number_preparation.h"

#include "platform/text/text_tools.h"

namespace orvane {
namespace {

constexpr std::string_view kSeparators = " ./\\()-";
constexpr std::size_t kMinPrefixCharacters = 3;

void ReplaceInternationalZeros(std::string& number) {
  if (number.starts_with("00")) number.replace(0, 2, "+");
}

}  // namespace

std::string FilterChars(std::string_view text, std::string_view set, bool keep) {
  const std::string lowerSet = LowerAscii(set);
  std::string result;
  while (!text.empty()) {
    const std::string character = FirstCharacters(text, 1);
    const bool inSet = lowerSet.find(LowerAscii(character)) != std::string::npos;
    if (inSet == keep) result += character;
    text.remove_prefix(character.size());
  }
  return result;
}

std::string PrepareDialNumber(std::string_view text, std::string_view countryPrefix) {
  std::string number = Trim(text);
  // Looked at before the separators go: "(00" and "0 0" are no international prefix.
  ReplaceInternationalZeros(number);
  if (number.starts_with('+')) {
    if (!countryPrefix.empty() && number.starts_with(countryPrefix)) {
      number.erase(0, countryPrefix.size());
      if (!number.starts_with('0')) number.insert(0, "0");
    } else {
      number.replace(0, 1, "00");
    }
  }
  return FilterChars(number, kSeparators, false);
}

std::string NormalizeNumber(std::string_view text, std::string_view countryPrefix) {
  std::string number = FilterChars(Trim(text), kSeparators, false);
  ReplaceInternationalZeros(number);
  if (number.starts_with('+')) return number.substr(1);
  if (!countryPrefix.starts_with('+') || countryPrefix.size() < kMinPrefixCharacters) return {};
  if (number.starts_with('0')) number.erase(0, 1);
  return std::string(countryPrefix.substr(1)) + number;
}

bool HoldsNumber(std::string_view text) {
  return text.find_first_of("123456789") != std::string_view::npos;
}

}  // namespace orvane
