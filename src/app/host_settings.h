#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/host_registry.h"

// Every value of the host's registry key that the program reads or writes, in one place: section
// (a sub-key, empty for the key itself), name, form and what holds while the value is missing.
// Names are not case-sensitive. docs/host-settings.md says what each means and who writes it.
namespace orvane {

// Text as typed or stored.
struct TextSetting {
  std::string_view section;
  std::string_view name;
  std::string_view fallback = "";
};

// A whole number from 0 to 255 as decimal text; anything else is an error to be told.
struct ByteSetting {
  std::string_view section;
  std::string_view name;
  std::string_view fallback;
};

// A number as decimal text, read as far as the text begins with one; of a window only whole numbers
// count.
struct NumberSetting {
  std::string_view section;
  std::string_view name;
  int fallback = 0;
};

namespace setting {

// Scrambled by the host, except for the marker of hosts without a server.
inline constexpr TextSetting kServerName{"", "SrvName"};
inline constexpr TextSetting kServerLogin{"", "SrvLogin"};
inline constexpr TextSetting kServerPassword{"", "SrvPass"};

inline constexpr TextSetting kHostFolder{"", "TXPfad"};
inline constexpr ByteSetting kDialMethod{"", "CTI", "0"};
inline constexpr ByteSetting kComPort{"", "ComPort", "1"};
inline constexpr TextSetting kLineName{"", "TapiBez"};
inline constexpr TextSetting kOutsideLineInt{"", "AmtInt"};
inline constexpr TextSetting kOutsideLineExt{"", "AmtExt"};
inline constexpr TextSetting kRedial{"", "Wahlwdh"};
inline constexpr TextSetting kTestNumber{"", "TestRufNr"};
inline constexpr NumberSetting kTestTarget{"", "TestRufNrIE"};
inline constexpr NumberSetting kCallMonitor{"", "TapiMon"};

// The log for support: on when not 0; with numbers and names when the second is not 0 either.
inline constexpr NumberSetting kSupportLog{"", "BriskoLog"};
inline constexpr NumberSetting kSupportLogOpen{"", "BriskoLogOffen"};

// The section of the dial window.
inline constexpr std::string_view kDialSection = "Dial";
// Position and size in twips; without a left edge nothing is saved.
inline constexpr NumberSetting kLeft{kDialSection, "L", -123};
inline constexpr NumberSetting kTop{kDialSection, "T"};
inline constexpr NumberSetting kWidth{kDialSection, "W"};
inline constexpr NumberSetting kHeight{kDialSection, "H"};
inline constexpr NumberSetting kWindowState{kDialSection, "WS"};
// The outgoing calls, the longest period, all kinds of calls.
inline constexpr NumberSetting kCallTab{kDialSection, "TelTab", 1};
inline constexpr NumberSetting kCallPeriod{kDialSection, "cboFilter", 0};
inline constexpr NumberSetting kCallKindsShown[] = {{kDialSection, "cTel0", 1},
                                                    {kDialSection, "cTel1", 1},
                                                    {kDialSection, "cTel2", 1},
                                                    {kDialSection, "cTel3", 1}};
inline constexpr TextSetting kCallColumns{kDialSection, "TelSpalten"};

// Not of the host's key but of its maker's.
inline constexpr TextSetting kDeveloper{"", "BriskoDev"};

}  // namespace setting

// What is stored, whatever its form; nothing while it is missing. Throws RegistryError.
template <typename Setting>
std::optional<std::string> Stored(HostRegistry& registry, const Setting& setting) {
  return registry.Read(setting.section, setting.name);
}

// Throws RegistryError.
template <typename Setting>
void Store(HostRegistry& registry, const Setting& setting, std::string_view value) {
  registry.Write(setting.section, setting.name, value);
}

}  // namespace orvane
