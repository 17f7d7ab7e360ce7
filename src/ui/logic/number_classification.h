#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvane {

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

}  // namespace orvane
