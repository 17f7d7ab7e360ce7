#pragma once

#include <string>
#include <string_view>

namespace orvane {

// What the host writes for "SrvName", "SrvLogin" and "SrvPass": the scrambled form of a plain UTF-8
// text (characters outside Windows-1252 become "?"). Empty text stays empty.
std::string ScrambleSetting(std::string_view text, std::string_view key, int rounds);

}  // namespace orvane
