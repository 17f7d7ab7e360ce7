#include "app/ini_value.h"

#include "platform/errors.h"

namespace orvane {

std::string ReadIniValue(IniFile& ini, Prompts& prompts, std::string_view section,
                         std::string_view key, std::string_view file, std::string_view fallback) {
  try {
    return ini.Read(section, key, file, fallback);
  } catch (const IniError& error) {
    prompts.ShowMessage(
        PromptIcon::kNone,
        "Fehlernummer: " + std::to_string(error.Number()) + " bei Prozedur: INI-Read", "Brisko");
    return {};
  }
}

}  // namespace orvane
