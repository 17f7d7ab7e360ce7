#pragma once

#include <string>
#include <string_view>

namespace orvane {

// What GetField gives for a field that does not exist.
inline constexpr std::string_view kPipeEnd = "<PipeEnd>";

// Field `index` (from 1) of a text whose fields are parted by `separator`; kPipeEnd past the end or
// for an index below 1.
std::string GetField(std::string_view text, int index, std::string_view separator);

}  // namespace orvane
