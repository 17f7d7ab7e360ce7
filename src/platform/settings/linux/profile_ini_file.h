#pragma once

#include "platform/ini_file.h"

namespace orvane {

// Reads INI files as the Windows call does, from the ANSI text of the file. The file is read afresh
// each time; only its first 4 MB count.
class ProfileIniFile : public IniFile {
 public:
  std::string Read(std::string_view section, std::string_view key, std::string_view file,
                   std::string_view fallback) override;
};

}  // namespace orvane
