#pragma once

#include <string>
#include <string_view>

namespace orvane {

// What stands behind the program's name on a command line, as it was written: blanks and quotes
// inside are the caller's.
std::wstring_view BehindProgramName(std::wstring_view commandLine);

// The same of this process, in UTF-8.
std::string CommandLineText();

}  // namespace orvane
