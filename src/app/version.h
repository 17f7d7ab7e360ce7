#pragma once

#include <string>

namespace orvane {

// Major, minor and revision number of the program, joined by ".".
inline std::string ProgramVersion() {
  return ORVANE_VERSION;
}

}  // namespace orvane
