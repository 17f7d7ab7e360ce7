#pragma once

#include "platform/ini_file.h"

namespace orvane {

// INI files through the system's own call, which works in its ANSI code page: a file whose path has
// characters outside of it cannot be read and counts as missing.
class SystemIniFile : public IniFile {
 public:
  std::string Read(std::string_view section, std::string_view key, std::string_view file,
                   std::string_view fallback) override;
};

}  // namespace orvane
