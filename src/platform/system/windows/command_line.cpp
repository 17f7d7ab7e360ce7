#include "platform/system/windows/command_line.h"

#include <windows.h>

#include <algorithm>

#include "platform/system/windows/wide_text.h"

namespace orvane {

std::wstring_view BehindProgramName(std::wstring_view commandLine) {
  const bool quoted = commandLine.starts_with(L'"');
  const std::size_t end = quoted ? commandLine.find(L'"', 1) : commandLine.find_first_of(L" \t");
  if (end == std::wstring_view::npos) return {};
  commandLine.remove_prefix(end + 1);
  commandLine.remove_prefix(std::min(commandLine.find_first_not_of(L" \t"), commandLine.size()));
  return commandLine;
}

std::string CommandLineText() {
  return ToUtf8(BehindProgramName(GetCommandLineW()));
}

}  // namespace orvane
