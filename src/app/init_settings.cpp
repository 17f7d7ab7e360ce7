#include "app/init_settings.h"

#include <exception>

#include "app/error_report.h"
#include "app/file_text.h"
#include "app/host_paths.h"
#include "app/number_text.h"
#include "platform/errors.h"
#include "platform/text/ansi.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

constexpr std::string_view kProcedure = "Initialisierung - Einstellungen";
constexpr std::string_view kBlockSeparator = "¿";
constexpr std::string_view kFieldSeparator = "|";
constexpr int kFieldsPerBlock = 16;
// More than any list shows; a damaged file may hold megabytes in one field.
constexpr std::size_t kMaxSpeedDialNameCharacters = 255;

// The line control's own constants for opening a line.
constexpr std::int32_t kOpenPrivileges = 4;
constexpr std::int32_t kOpenMediaModes = 6;
constexpr std::int16_t kOpenOptions = 9;

std::string BlockOf(std::string_view file, int index) {
  const std::string block = GetField(file, index, kBlockSeparator);
  return block == kPipeEnd ? std::string() : block;
}

struct SpeedDial {
  int entries = 0;
  std::string numbers;
};

void AddBlock(const std::string& block, SpeedDialKind kind, SettingsPanel& panel, SpeedDial& list) {
  for (int i = 0; i < kFieldsPerBlock; i += 2) {
    const std::string name = GetField(block, i + 1, kFieldSeparator);
    if (name.empty() || name == kPipeEnd) continue;
    panel.AddSpeedDialEntry(
        SpeedDialItemMarkup(FirstCharacters(name, kMaxSpeedDialNameCharacters), kind));
    list.numbers += GetField(block, i + 2, kFieldSeparator) + std::string(kFieldSeparator);
    ++list.entries;
  }
}

void LoadSpeedDial(const std::string& file, SettingsPanel& panel) {
  panel.ResetSpeedDial();
  SpeedDial list;
  const std::string internalBlock = BlockOf(file, 1);
  if (!internalBlock.empty()) {
    AddBlock(internalBlock, SpeedDialKind::kInternal, panel, list);
    AddBlock(BlockOf(file, 2), SpeedDialKind::kExternal, panel, list);
  }
  panel.SetSpeedDialNumbers(list.numbers);
  if (list.entries == 0) {
    panel.AddSpeedDialEntry("Keine Kurzwahlnummer gespeichert!");
  } else {
    panel.SetSpeedDialSelectable(true);
  }
}

void ReadRegistrySettings(Services& services, ProgramState& state) {
  DialSettings& settings = state.settings;
  const auto read = [&](std::string_view name, std::string_view fallback) {
    return ReadHostSetting(state.host, services.prompts, name, fallback);
  };
  settings.dialMethod = ToByte(read("CTI", "0"));
  settings.outsideLineExt = read("AmtExt", "");
  settings.outsideLineInt = read("AmtInt", "");
  settings.comPortNumber = ToByte(read("COMPort", "1"));
  settings.tapiLineName = read("TapiBez", "");
}

void ReadFiles(Services& services, ProgramState& state, SettingsPanel& panel) {
  const std::string iniFile = state.host.dataPath + "Global.ini";
  const std::string speedDial =
      DecodeAnsi(ReadWholeFile(state.host.userPath + "res\\Kurzwahl.dat"));
  state.settings.countryPrefix = ReadIniValue(services, "Tel", "LandVorwahl", iniFile, "+49");
  panel.SetExternVisible(ReadIniValue(services, "Tel", "InternMax3", iniFile, "1") == "0");
  LoadSpeedDial(speedDial, panel);
}

// Opens the configured line; false when there is none of that name.
bool OpenConfiguredLine(TapiControl& tapi, DialSettings& settings) {
  settings.tapiLineId = kNoTapiLine;
  if (settings.tapiLineName.empty()) return false;
  if (!TapiInitialised(tapi)) tapi.Initialise();
  const int count = tapi.LineCount();
  for (int line = 0; line < count; ++line) {
    if (tapi.LineName(line) != settings.tapiLineName) continue;
    std::int32_t id = line;
    OpenTapiLine(tapi, id);
    settings.tapiLineId = id;
    return true;
  }
  return false;
}

void ShowDialMethod(Services& services, ProgramState& state, SettingsPanel& panel) {
  DialSettings& settings = state.settings;
  switch (settings.dialMethod) {
    case kDialMethodNone:
      panel.SetDialMethodStatus("Kein CTI", "Bitte konfigurieren.");
      break;
    case kDialMethodModem:
      panel.SetDialMethodStatus("<Bereit>",
                                "COM" + std::to_string(settings.comPortNumber) + ": initialisiert");
      break;
    default:
      // Shown first, because a line that is there may still refuse to be opened.
      panel.SetDialMethodStatus("TAPI-Fehler!", "Bitte konfigurieren.");
      if (OpenConfiguredLine(services.tapi, settings)) {
        panel.SetDialMethodStatus("<Bereit>", "TAPI initialisiert");
      }
  }
}

}  // namespace

std::string GetField(std::string_view text, int index, std::string_view separator) {
  std::size_t start = 0;
  for (int field = 1; index > 0; ++field) {
    const auto end = text.find(separator, start);
    if (field == index) return std::string(text.substr(start, end - start));
    if (end == std::string_view::npos) break;
    start = end + separator.size();
  }
  return std::string(kPipeEnd);
}

std::string SpeedDialItemMarkup(std::string_view name, SpeedDialKind kind) {
  return "<?xml version='1.0' encoding='windows-1252'?><StackPanel Orientation='Horizontal'>"
         "<Image VerticalAlignment='Center' Source='" +
         std::to_string(static_cast<int>(kind)) +
         "'/><TextBlock Padding = '4' VerticalAlignment='Center'>" + std::string(name) +
         "</TextBlock></StackPanel>";
}

std::string ReadIniValue(Services& services, std::string_view section, std::string_view key,
                         std::string_view file, std::string_view fallback) {
  try {
    return services.ini.Read(section, key, file, fallback);
  } catch (const IniError& error) {
    services.prompts.ShowMessage(
        PromptIcon::kNone,
        "Fehlernummer: " + std::to_string(error.Number()) + " bei Prozedur: INI-Read", "Brisko");
    return {};
  }
}

bool TapiInitialised(const TapiControl& tapi) {
  const std::string tag = tapi.Tag();
  return !tag.empty() && tag != "closed";
}

void OpenTapiLine(TapiControl& tapi, std::int32_t& line) {
  tapi.OpenLine(line, kOpenPrivileges, kOpenMediaModes, kOpenOptions);
}

void InitSettings(Services& services, ProgramState& state, SettingsPanel& panel) {
  try {
    ReadRegistrySettings(services, state);
    state.databases.journal = services.databases.NewConnection();
    ReadFiles(services, state, panel);
    panel.SetSpeedDialToolTip(
        "Kurzwahlspeicher: Eintrag auswählen, um seine Rufnummer zu übernehmen");
    ShowDialMethod(services, state, panel);
  } catch (const std::exception& error) {
    ShowError(services.prompts, ErrorStateOf(error), kProcedure);
  }
}

void ReopenConfiguredLine(Services& services, ProgramState& state, SettingsPanel& panel) {
  try {
    ShowDialMethod(services, state, panel);
  } catch (const std::exception&) {
    // The window shows that the line is not there.
  }
}

}  // namespace orvane
