#include "ui/logic/clipboard_offer.h"

#include <algorithm>

#include "dialing/number_preparation.h"

namespace orvane {
namespace {

constexpr std::string_view kOfferedCharacters = "0123456789/\\+-()<>#* ";
constexpr std::ptrdiff_t kTextLimitCharacters = 35;
constexpr std::ptrdiff_t kFewestDigits = 4;
constexpr std::ptrdiff_t kDigitLimit = 25;

std::ptrdiff_t CountCharacters(std::string_view utf8) {
  return std::ranges::count_if(
      utf8, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; });
}

}  // namespace

std::string NumberFromClipboard(std::string_view text) {
  const auto digits = std::ranges::count_if(text, [](char c) { return c >= '0' && c <= '9'; });
  if (CountCharacters(text) >= kTextLimitCharacters) return {};
  if (digits < kFewestDigits || digits >= kDigitLimit) return {};
  const std::string kept = FilterChars(text, kOfferedCharacters, true);
  const auto first = kept.find_first_not_of(' ');
  const auto last = kept.find_last_not_of(' ');
  return kept.substr(first, last - first + 1);
}

}  // namespace orvane
