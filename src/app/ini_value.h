#pragma once

#include <string>
#include <string_view>

#include "platform/ini_file.h"
#include "platform/prompts.h"

namespace orvane {

// One INI value as UTF-8; the fallback when it does not exist. A failing system call shows a
// message box and gives an empty text.
std::string ReadIniValue(IniFile& ini, Prompts& prompts, std::string_view section,
                         std::string_view key, std::string_view file, std::string_view fallback);

}  // namespace orvane
