#pragma once

#include <string>

#include "platform/line_info.h"

namespace orvane {

// A line with one address on which one plain voice call at a time is dialled and dropped.
LineInfo VoiceLineInfo(std::string address, std::string switchInfo, std::string providerInfo);

}  // namespace orvane
