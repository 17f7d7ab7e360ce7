#pragma once

#include <string>
#include <vector>

#include "platform/line_info.h"

namespace orvane {

// What a line can do, as lines of text: each capability's label and its decimal value below, then
// the addresses.
std::vector<std::string> CapabilityLines(const std::string& lineName, const LineInfo& info);

// Which driver and telephone system stand behind a line.
std::vector<std::string> DriverLines(const std::string& lineName, const LineInfo& info);

}  // namespace orvane
