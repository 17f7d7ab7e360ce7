#pragma once

#include <strings.h>

#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "platform/errors.h"
#include "platform/ini_file.h"
#include "platform/text/ansi.h"

namespace orvane {

class FakeIni : public IniFile {
 public:
  std::string Read(std::string_view section, std::string_view key, std::string_view file,
                   std::string_view fallback) override {
    lastFile = file;
    if (fail) throw IniError(53, "Datei nicht gefunden");
    for (const auto& [names, value] : values) {
      if (strcasecmp(names.first.c_str(), std::string(section).c_str()) == 0 &&
          strcasecmp(names.second.c_str(), std::string(key).c_str()) == 0) {
        return InBuffer(value);
      }
    }
    return InBuffer(fallback.substr(0, fallback.find_last_not_of(" \t") + 1));
  }

  std::map<std::pair<std::string, std::string>, std::string> values;
  std::string lastFile;
  bool fail = false;

 private:
  static std::string InBuffer(std::string_view text) {
    return DecodeAnsi(EncodeAnsi(text).substr(0, kIniBufferBytes - 1));
  }
};

}  // namespace orvane
