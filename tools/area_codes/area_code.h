#pragma once

#include <string>
#include <vector>

namespace orvane {

// One row of the area-code table: what a number begins with, and where that leads.
struct AreaCode {
  std::string prefix;
  std::string place;  // UTF-8, German

  bool operator==(const AreaCode&) const = default;
};

using AreaCodes = std::vector<AreaCode>;

}  // namespace orvane
