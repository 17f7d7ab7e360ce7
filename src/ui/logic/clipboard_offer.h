#pragma once

#include <string>
#include <string_view>

namespace orvane {

// The number that a clipboard text (UTF-8) offers when the window opens: the text reduced to the
// characters of numbers and trimmed, when it is short enough to be one (below 35 characters, 4 to
// 24 digits); empty otherwise.
std::string NumberFromClipboard(std::string_view text);

}  // namespace orvane
