#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace orvane {

// What a telephone line tells about itself. The modes, features and states are the line
// interface's bit sets; texts are UTF-8.
struct LineInfo {
  std::uint32_t bearerModes = 0;
  std::uint32_t busyModes = 0;
  std::uint32_t callFeatures = 0;
  std::uint32_t callInfoStates = 0;
  std::uint32_t callStates = 0;
  std::uint32_t dialToneModes = 0;
  std::uint32_t disconnectModes = 0;
  std::uint32_t mediaModes = 0;
  std::uint32_t parkModes = 0;
  std::uint32_t addressModes = 0;
  // One text an address of the line; one that has no address text is there and empty.
  std::vector<std::string> addresses;
  std::string switchInfo;
  std::string providerInfo;
  // The version of the line interface that was agreed on for this line, the major number in the
  // upper 16 bits.
  std::uint32_t version = 0;
};

// The dialogs that the system or the line's driver shows.
enum class LineDialog {
  kDialling,  // where the user dials from: area code, outside line
  kDevice,    // the driver's own settings
};

}  // namespace orvane
