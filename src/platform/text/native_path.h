#pragma once

#include <filesystem>
#include <string_view>

namespace orvane {

// The file-system path for a path composed by the program (UTF-8, separators "\" or "/"). Where the
// file system tells letter cases apart, each part that does not exist as written is replaced by an
// existing name that differs in letter case only, so an installation copied from Windows works.
// Parts that exist in no letter case stay as written.
std::filesystem::path NativePath(std::string_view path);

}  // namespace orvane
