#pragma once

#include <map>
#include <string>
#include <tuple>

#include "platform/errors.h"
#include "platform/ini_file.h"

namespace orvane {

class FakeIni : public IniFile {
 public:
  std::string Read(std::string_view section, std::string_view key, std::string_view file,
                   std::string_view fallback) override {
    lastFile = file;
    if (fail) throw IniError(53, "Datei nicht gefunden");
    const auto found = values.find({std::string(section), std::string(key)});
    return found == values.end() ? std::string(fallback) : found->second;
  }

  std::map<std::pair<std::string, std::string>, std::string> values;
  std::string lastFile;
  bool fail = false;
};

}  // namespace orvane
