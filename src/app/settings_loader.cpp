#include "app/settings_loader.h"

#include "app/attempt.h"
#include "app/error_report.h"
#include "app/host_paths.h"
#include "app/ini_value.h"
#include "app/line_opening.h"
#include "app/speed_dial_file.h"
#include "app/speed_dial_markup.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

constexpr std::string_view kProcedure = "Initialisierung - Einstellungen";
// More than any list shows; a damaged file may hold megabytes in one field.
constexpr std::size_t kMaxSpeedDialNameCharacters = 255;

struct SpeedDialList {
  int entries = 0;
  std::string numbers;
};

void AddBlock(const SpeedDialRows& rows, SpeedDialKind kind, SettingsPanel& panel,
              SpeedDialList& list) {
  for (const SpeedDialRow& row : rows) {
    if (row.name.empty() || row.name == kPipeEnd) continue;
    panel.AddSpeedDialEntry(
        SpeedDialItemMarkup(FirstCharacters(row.name, kMaxSpeedDialNameCharacters), kind));
    list.numbers += row.number + kSpeedDialFieldSeparator;
    ++list.entries;
  }
}

void ShowSpeedDial(const SpeedDialMemory& memory, SettingsPanel& panel) {
  panel.ResetSpeedDial();
  SpeedDialList list;
  // Without an internal block the external one is not looked at either.
  if (!IsEmptyBlock(memory.internalRows)) {
    AddBlock(memory.internalRows, SpeedDialKind::kInternal, panel, list);
    AddBlock(memory.externalRows, SpeedDialKind::kExternal, panel, list);
  }
  panel.SetSpeedDialNumbers(list.numbers);
  if (list.entries == 0) {
    panel.AddSpeedDialEntry("Keine Kurzwahlnummer gespeichert!");
  } else {
    panel.SetSpeedDialSelectable(true);
  }
}

}  // namespace

void SettingsLoader::ReadRegistrySettings() {
  DialSettings& settings = state_.settings;
  const auto read = [this](const auto& setting) {
    return ReadHostSetting(state_.host, prompts_, setting);
  };
  settings.dialMethod = read(setting::kDialMethod);
  settings.outsideLineExt = read(setting::kOutsideLineExt);
  settings.outsideLineInt = read(setting::kOutsideLineInt);
  settings.comPortNumber = read(setting::kComPort);
  settings.tapiLineName = read(setting::kLineName);
}

void SettingsLoader::ReadFiles() {
  const SpeedDialMemory speedDial = ReadSpeedDialFile(state_.host.userPath);
  const auto read = [&](std::string_view key, std::string_view fallback) {
    return ReadIniValue(ini_, prompts_, "Tel", key, state_.host.dataPath + "Global.ini", fallback);
  };
  state_.settings.countryPrefix = read("LandVorwahl", "+49");
  panel_.SetExternVisible(read("InternMax3", "1") == "0");
  ShowSpeedDial(speedDial, panel_);
}

void SettingsLoader::ShowDialMethod() {
  DialSettings& settings = state_.settings;
  switch (settings.dialMethod) {
    case kDialMethodNone:
      panel_.SetDialMethodStatus("Kein CTI", "Bitte konfigurieren.");
      break;
    case kDialMethodModem:
      panel_.SetDialMethodStatus(
          "<Bereit>", "COM" + std::to_string(settings.comPortNumber) + ": initialisiert");
      break;
    default:
      // Shown first, because a line that is there may still refuse to be opened.
      panel_.SetDialMethodStatus("TAPI-Fehler!", "Bitte konfigurieren.");
      if (OpenConfiguredLine(tapi_, settings)) {
        panel_.SetDialMethodStatus("<Bereit>", "TAPI initialisiert");
      } else {
        log_.Tell(LogTopic::kLine, {"die eingestellte Leitung ist nicht dabei"});
      }
  }
}

void SettingsLoader::TellSettings() const {
  if (!log_.Listening()) return;
  const HostEnvironment& host = state_.host;
  const DialSettings& settings = state_.settings;
  const bool byLine = settings.dialMethod == kDialMethodTapi;
  const std::string way = byLine ? "Leitung „"
                          : settings.dialMethod == kDialMethodModem
                              ? "Modem an COM" + std::to_string(settings.comPortNumber)
                              : "keiner";
  log_.Tell(LogTopic::kProgram, {"Talmix in ",
                                 {LogPart::Kind::kPath, host.hostPath},
                                 ", Benutzer ",
                                 std::to_string(host.userNumber),
                                 ", Kontakte ",
                                 host.useSqlServer ? "auf dem Server " + host.sqlServerName
                                                   : std::string("in CONTACT.FDB")});
  log_.Tell(LogTopic::kProgram, {"Wählweg: ",
                                 way,
                                 {LogPart::Kind::kLineName, byLine ? settings.tapiLineName : ""},
                                 byLine ? "“" : "",
                                 ", Amt intern „",
                                 settings.outsideLineInt,
                                 "“, extern „",
                                 settings.outsideLineExt,
                                 "“, Landesvorwahl ",
                                 settings.countryPrefix});
}

void SettingsLoader::InitSettings() {
  const auto failure = Attempt([this] {
    ReadRegistrySettings();
    renewJournal_();
    ReadFiles();
    TellSettings();
    panel_.SetSpeedDialToolTip(
        "Kurzwahlspeicher: Eintrag auswählen, um seine Rufnummer zu übernehmen");
    ShowDialMethod();
  });
  if (failure) ShowError(prompts_, *failure, kProcedure);
}

void SettingsLoader::ReopenConfiguredLine() {
  // The window shows that the line is not there.
  Attempt([this] { ShowDialMethod(); });
}

}  // namespace orvane
