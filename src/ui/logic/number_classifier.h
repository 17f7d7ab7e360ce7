#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database.h"

namespace orvane {

// Members of the North American plan that the area-code table names one by one; all others are
// "USA/Kanada".
inline constexpr std::array<std::string_view, 16> kListedAmericanCodes = {
    "1242", "1246", "1264", "1268", "1345", "1441", "1473", "1684",
    "1758", "1767", "1784", "1808", "1809", "1868", "1869", "1876"};

// Where a number leads, as far as its prefix tells.
struct NumberClass {
  // What to show; when there are candidates, what to show if the area-code table has none of them.
  std::string label;
  // The prefixes to look up in the area-code table; empty when the label is final.
  std::vector<std::string> candidates;

  bool operator==(const NumberClass&) const = default;
};

// Classifies a number in the form of PrepareDialNumber; `international` tells that it begins with
// "00".
NumberClass ClassifyPrefix(std::string_view number, bool international);

// Tells where numbers lead, and remembers the last place that the area-code table named.
class NumberClassifier {
 public:
  // The label for a number in the form of PrepareDialNumber; `international` tells that it begins
  // with "00". The table's connection is closed; where a lookup is needed it is opened, asked and
  // closed again. A table that is null or cannot be read has no places. Throws nothing.
  std::string ClassifyNumber(std::string_view number, bool international,
                             DatabaseConnection* areaCodes);

 private:
  // Numbers that begin with this lead to the cached place; empty before the first one was found.
  std::string cachedPrefix_;
  std::string cachedPlace_;
};

}  // namespace orvane
