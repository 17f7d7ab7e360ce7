#include "ui/logic/clipboard_offer.h"

#include <algorithm>

#include "dialing/number_preparation.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

constexpr std::string_view kOfferedCharacters = "0123456789/\\+-()<>#* ";
constexpr std::size_t kTextLimitCharacters = 35;
constexpr std::ptrdiff_t kFewestDigits = 4;
constexpr std::ptrdiff_t kDigitLimit = 25;

}  // namespace

std::string NumberFromClipboard(std::string_view text) {
  const auto digits = std::ranges::count_if(text, [](char c) { return c >= '0' && c <= '9'; });
  if (CountCharacters(text) >= kTextLimitCharacters) return {};
  if (digits < kFewestDigits || digits >= kDigitLimit) return {};
  return Trim(FilterChars(text, kOfferedCharacters, true));
}

}  // namespace orvane
