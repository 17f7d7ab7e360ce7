#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/database.h"
#include "platform/host_registry.h"
#include "platform/tapi_control.h"

namespace orvane {

// How the program was started and where its host lives. Paths are UTF-8 and end with "\".
struct HostEnvironment {
  std::string programPath;
  // The command line after "TX:", split at "~"; later the fields of the last received message.
  std::vector<std::string> startArgs;
  std::unique_ptr<HostRegistry> registry;
  std::string hostPath;
  std::string dataPath;
  std::string resPath;

  bool useSqlServer = false;
  std::string sqlServerName;
  std::string sqlLogin;
  std::string sqlPassword;

  // 0 until the host names a user.
  std::int32_t userNumber = 0;
  std::string userPath;
};

// Ways to place a call, as the registry value "CTI" numbers them.
inline constexpr std::uint8_t kDialMethodNone = 0;
inline constexpr std::uint8_t kDialMethodModem = 1;
inline constexpr std::uint8_t kDialMethodTapi = 2;

struct DialSettings {
  std::uint8_t dialMethod = kDialMethodNone;
  std::string outsideLineInt;
  std::string outsideLineExt;
  std::uint8_t comPortNumber = 1;
  std::string tapiLineName;
  std::int32_t tapiLineId = kNoTapiLine;
  // With its leading "+", for example "+49".
  std::string countryPrefix;
};

// The connection to the contacts, which lives for the whole process. It is opened for one use and
// closed again; the stored text is what the provider reported after the first successful open.
struct DatabaseState {
  std::unique_ptr<DatabaseConnection> host;
  std::string hostConnectionString;
};

struct ProgramState {
  HostEnvironment host;
  DialSettings settings;
  DatabaseState databases;
};

}  // namespace orvane
