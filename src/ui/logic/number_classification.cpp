#include "ui/logic/number_classification.h"

#include <algorithm>
#include <array>

namespace orvane {
namespace {

struct PrefixLabel {
  std::string_view prefix;
  std::string_view label;
};

constexpr std::array<PrefixLabel, 17> kNationalLabels = {{
    {"069", "Frankfurt am Main"},
    {"089", "München"},
    {"040", "Hamburg"},
    {"030", "Berlin"},
    {"015", "<Mobilnetz>"},
    {"016", "<Mobilnetz>"},
    {"017", "<Mobilnetz>"},
    {"032", "Ortsunabhängige Rufnummer"},
    {"010", "Call-by-Call"},
    {"018", "Shared-Cost-Dienst"},
    {"012", "Sonderrufnummer"},
    {"013", "Sonderrufnummer"},
    {"014", "Sonderrufnummer"},
    {"019", "Sonderrufnummer"},
    {"0700", "Persönliche Rufnummer"},
    {"0800", "Freephone"},
    {"0900", "Premium-Dienst"},
}};

std::vector<std::string> Prefixes(std::string_view number, std::size_t shortest) {
  std::vector<std::string> prefixes;
  for (std::size_t length = shortest; length < shortest + 3; ++length) {
    prefixes.emplace_back(number.substr(0, length));
  }
  return prefixes;
}

NumberClass ClassifyNational(std::string_view number) {
  const auto known = std::ranges::find_if(
      kNationalLabels, [&](const PrefixLabel& entry) { return number.starts_with(entry.prefix); });
  if (known != kNationalLabels.end()) return {std::string(known->label), {}};
  return {"<Inland>", Prefixes(number, 4)};
}

NumberClass ClassifyInternational(std::string_view number) {
  const bool listed =
      std::ranges::find(kListedAmericanCodes, number.substr(0, 4)) != kListedAmericanCodes.end();
  if (number.starts_with('1') && !listed) return {"USA/Kanada", {}};
  if (number.starts_with('7')) return {"Russland/Kasachstan", {}};
  return {"<Ausland>", Prefixes(number, 2)};
}

}  // namespace

NumberClass ClassifyPrefix(std::string_view number, bool international) {
  if (!international) return ClassifyNational(number);
  number.remove_prefix(std::min<std::size_t>(2, number.size()));
  return ClassifyInternational(number);
}

}  // namespace orvane
