#pragma once

#include <string>
#include <string_view>

#include "platform/database.h"

namespace orvane {

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
