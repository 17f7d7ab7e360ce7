#pragma once

#include <string>
#include <string_view>

namespace orvane {

enum class SpeedDialKind { kInternal = 1, kExternal = 2 };

// The display text of one speed-dial entry; the name goes in as it is.
std::string SpeedDialItemMarkup(std::string_view name, SpeedDialKind kind);

}  // namespace orvane
