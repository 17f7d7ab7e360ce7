#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/host_registry.h"
#include "sample_contacts.h"

namespace orvane {

struct SpeedDialEntry {
  std::string name;
  std::string number;
};

// What a host installation holds. All texts are UTF-8, plain; they are scrambled and encoded when
// they are written.
struct HostInstallationOptions {
  std::int32_t userNumber = 17;

  // "~.~" selects the contact file, any other login the server.
  std::string serverName;
  std::string serverLogin = "~.~";
  std::string serverPassword;

  int dialMethod = 1;
  int comPort = 1;
  std::string tapiLineName;
  std::string outsideLineInt;
  std::string outsideLineExt = "0";

  std::string countryPrefix = "+49";
  // "0": users mark external numbers by hand.
  std::string internalMax3 = "1";

  std::vector<SpeedDialEntry> internalSpeedDial = {{"Krüger, Vertrieb", "217"}, {"Empfang", "10"}};
  std::vector<SpeedDialEntry> externalSpeedDial = {
      {"Havelwerk Maschinenbau", "030 / 23125-0"},
      {"Rheinkontor Spedition", "0221 / 4710-100"},
      {"Alsterlicht Verlag", "040 / 66969-0"},
  };

  SampleContacts contacts = DefaultContacts();

  // The area-code table to install; none when empty or missing.
  std::filesystem::path areaCodeFile;

  // Outgoing calls of the last weeks in a new journal; none leaves it empty.
  int journalCalls = 0;
};

// Where the parts of an installation lie.
struct HostInstallation {
  // As stored in "TXPfad": with "\" and one at the end.
  std::string hostPath;
  std::filesystem::path globalIni;
  std::filesystem::path contactFile;
  std::filesystem::path journalFile;
  std::filesystem::path speedDialFile;
};

// Builds a complete host installation in `folder` and writes the registry values that lead to it;
// `registry` is a fresh helper object, which this binds to the host's key. A journal that is
// already there stays as it is. Throws std::runtime_error (std::filesystem::filesystem_error) when
// a file cannot be written, RegistryError when the registry refuses.
HostInstallation BuildHostInstallation(const std::filesystem::path& folder, HostRegistry& registry,
                                       const HostInstallationOptions& options = {});

}  // namespace orvane
