#include "host_installation.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <fstream>
#include <stdexcept>

#include "app/date_time.h"
#include "app/host_paths.h"
#include "app/unscramble_setting.h"
#include "contact_file.h"
#include "journal_schema.h"
#include "platform/text/ansi.h"
#include "sample_calls.h"
#include "scramble_setting.h"

namespace orvane {
namespace {

constexpr std::size_t kSpeedDialPlaces = 8;

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

// All eight places, the empty ones too, as the options dialog writes them.
std::string SpeedDialBlock(const std::vector<SpeedDialEntry>& entries) {
  std::string block;
  for (std::size_t i = 0; i < kSpeedDialPlaces; ++i) {
    const auto entry = i < entries.size() ? entries[i] : SpeedDialEntry{};
    block += entry.name + "|" + entry.number + "|";
  }
  return block + "¿";
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
  const std::array<std::pair<std::string, std::string>, 9> values = {{
      {"TXPfad", hostPath},
      {"SrvName", Scramble(options.serverName)},
      {"SrvLogin", Scramble(options.serverLogin)},
      {"SrvPass", Scramble(options.serverPassword)},
      {"CTI", std::to_string(options.dialMethod)},
      {"COMPort", std::to_string(options.comPort)},
      {"TapiBez", options.tapiLineName},
      {"AmtInt", options.outsideLineInt},
      {"AmtExt", options.outsideLineExt},
  }};
  for (const auto& [name, value] : values) registry.Write("", name, value);
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
  WriteFile(installation.speedDialFile, EncodeAnsi(SpeedDialBlock(options.internalSpeedDial) +
                                                   SpeedDialBlock(options.externalSpeedDial)));
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
