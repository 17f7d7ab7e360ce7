#include "host_installation.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <fstream>
#include <stdexcept>

#include "app/date_time.h"
#include "app/host_paths.h"
#include "app/host_settings.h"
#include "app/speed_dial_file.h"
#include "app/unscramble_setting.h"
#include "contact_file.h"
#include "journal_schema.h"
#include "platform/text/ansi.h"
#include "sample_calls.h"
#include "scramble_setting.h"

namespace orvane {
namespace {

// The host's form of a path: every separator is "\", one at the end.
std::string HostFolderText(const std::filesystem::path& folder) {
  std::string text = std::filesystem::absolute(folder).generic_string();
  if (!text.ends_with('/')) text += '/';
  std::replace(text.begin(), text.end(), '/', '\\');
  return text;
}

void WriteFile(const std::filesystem::path& file, const std::string& bytes) {
  std::ofstream stream(file, std::ios::binary | std::ios::trunc);
  stream << bytes;
  stream.close();
  if (!stream) throw std::runtime_error("cannot write " + file.string());
}

std::string GlobalIni(const HostInstallationOptions& options) {
  return "[Allgemein]\r\nMandant=Demo\r\n\r\n[Tel]\r\nLandVorwahl=" + options.countryPrefix +
         "\r\nInternMax3=" + options.internalMax3 + "\r\n";
}

SpeedDialRows RowsOf(const std::vector<SpeedDialEntry>& entries) {
  SpeedDialRows rows;
  for (std::size_t i = 0; i < std::min(entries.size(), rows.size()); ++i) {
    rows[i] = {entries[i].name, entries[i].number};
  }
  return rows;
}

// Local time in days since 1899-12-30.
double Now() {
  const std::time_t seconds = std::time(nullptr);
  const std::tm& local = *std::localtime(&seconds);
  return ToDateTime({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                     local.tm_min, local.tm_sec});
}

std::string Scramble(const std::string& text) {
  return ScrambleSetting(text, kScrambleKey, kScrambleRounds);
}

void WriteRegistry(HostRegistry& registry, const std::string& hostPath,
                   const HostInstallationOptions& options) {
  BindHostRegistry(registry);
  Store(registry, setting::kHostFolder, hostPath);
  Store(registry, setting::kServerName, Scramble(options.serverName));
  Store(registry, setting::kServerLogin, Scramble(options.serverLogin));
  Store(registry, setting::kServerPassword, Scramble(options.serverPassword));
  Store(registry, setting::kDialMethod, std::to_string(options.dialMethod));
  Store(registry, setting::kComPort, std::to_string(options.comPort));
  Store(registry, setting::kLineName, options.tapiLineName);
  Store(registry, setting::kOutsideLineInt, options.outsideLineInt);
  Store(registry, setting::kOutsideLineExt, options.outsideLineExt);
}

}  // namespace

HostInstallation BuildHostInstallation(const std::filesystem::path& folder, HostRegistry& registry,
                                       const HostInstallationOptions& options) {
  const auto data = folder / "Daten";
  const auto userRes = data / "User" / std::to_string(options.userNumber) / "res";
  std::filesystem::create_directories(userRes);
  std::filesystem::create_directories(folder / "res");

  HostInstallation installation{HostFolderText(folder), data / "Global.ini", data / "CONTACT.FDB",
                                userRes / "TelList.fdb", userRes / "Kurzwahl.dat"};
  WriteFile(installation.globalIni, EncodeAnsi(GlobalIni(options)));
  WriteFile(installation.speedDialFile,
            EncodeAnsi(SpeedDialFileText(
                {RowsOf(options.internalSpeedDial), RowsOf(options.externalSpeedDial)})));
  if (std::filesystem::exists(options.areaCodeFile)) {
    // Not every library overwrites when it is told to.
    std::filesystem::remove(folder / "res" / "VPB.rgt");
    std::filesystem::copy_file(options.areaCodeFile, folder / "res" / "VPB.rgt");
  }
  WriteContactFile(installation.contactFile, options.contacts);
  if (!std::filesystem::exists(installation.journalFile)) {
    CreateJournalFile(installation.journalFile,
                      SampleCallsScript(options.contacts, Now(), options.journalCalls));
  }
  WriteRegistry(registry, installation.hostPath, options);
  return installation;
}

}  // namespace orvane
