#include "ui/logic/number_classifier.h"

#include <memory>
#include <optional>

#include "app/attempt.h"
#include "journal/field_access.h"
#include "ui/logic/number_classification.h"

namespace orvane {
namespace {

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
