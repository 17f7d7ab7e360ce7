#pragma once

#include <algorithm>
#include <cctype>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "platform/ansi.h"
#include "platform/errors.h"
#include "platform/ini_file.h"

namespace orvane {

class FakeIni : public IniFile {
 public:
  std::string Read(std::string_view section, std::string_view key, std::string_view file,
                   std::string_view fallback) override {
    lastFile = file;
    if (fail) throw IniError(53, "Datei nicht gefunden");
    for (const auto& [names, value] : values) {
      if (SameName(names.first, section) && SameName(names.second, key)) return InBuffer(value);
    }
    return InBuffer(fallback.substr(0, fallback.find_last_not_of(" \t") + 1));
  }

  std::map<std::pair<std::string, std::string>, std::string> values;
  std::string lastFile;
  bool fail = false;

 private:
  static bool SameName(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
      return std::tolower(x) == std::tolower(y);
    });
  }
  static std::string InBuffer(std::string_view text) {
    return DecodeAnsi(EncodeAnsi(text).substr(0, kIniBufferBytes - 1));
  }
};

}  // namespace orvane
