#include "ui/logic/number_classifier.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

#include "app/attempt.h"
#include "journal/field_access.h"

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

// How much of a number answers for its place from then on. The international part counts the "00":
// after a number in Luxemburg (00352), all of 0035 leads there until another place is found.
constexpr std::size_t kNationalPrefix = 6;
constexpr std::size_t kInternationalPrefix = 4;

std::string LookupText(const std::vector<std::string>& candidates) {
  std::string list;
  for (const std::string& candidate : candidates) {
    if (!list.empty()) list += "','";
    list += candidate;
  }
  return "SELECT Ort FROM VW WHERE VW IN('" + list + "')";
}

// The place of the first row that the table returns.
std::optional<std::string> LookUp(DatabaseConnection& table,
                                  const std::vector<std::string>& candidates) {
  std::optional<std::string> place;
  Attempt([&] { table.Open(); });
  Attempt([&] {
    const auto rows = table.Execute(LookupText(candidates));
    if (!rows->AtEnd()) place = TextField(*rows, "Ort");
  });
  Attempt([&] { table.Close(); });
  return place;
}

}  // namespace

NumberClass ClassifyPrefix(std::string_view number, bool international) {
  if (!international) return ClassifyNational(number);
  number.remove_prefix(std::min<std::size_t>(2, number.size()));
  return ClassifyInternational(number);
}

std::string NumberClassifier::ClassifyNumber(std::string_view number, bool international,
                                             DatabaseConnection* areaCodes) {
  if (!cachedPrefix_.empty() && number.starts_with(cachedPrefix_)) return cachedPlace_;
  NumberClass known = ClassifyPrefix(number, international);
  if (known.candidates.empty() || areaCodes == nullptr) return known.label;
  const auto place = LookUp(*areaCodes, known.candidates);
  if (!place) return known.label;
  cachedPrefix_ = number.substr(0, international ? kInternationalPrefix : kNationalPrefix);
  cachedPlace_ = *place;
  return cachedPlace_;
}

}  // namespace orvane
