#include "ui/logic/driver_info.h"

#include <utility>

namespace orvane {

std::vector<std::string> CapabilityLines(const std::string& lineName, const LineInfo& info) {
  const std::pair<const char*, std::uint32_t> capabilities[] = {
      {"Bearermodes: ", info.bearerModes},
      {"Busymodes: ", info.busyModes},
      {"Callfeatures: ", info.callFeatures},
      {"Callinfostates: ", info.callInfoStates},
      {"Callstates: ", info.callStates},
      {"Dialtonemodes: ", info.dialToneModes},
      {"Disconnectmodes: ", info.disconnectModes},
      {"Mediamodes: ", info.mediaModes},
      {"Parkmodes: ", info.parkModes},
      {"Addressmodes: ", info.addressModes},
  };
  std::vector<std::string> lines = {"Treiber-Funktionen zu " + lineName, ""};
  for (const auto& [label, value] : capabilities) {
    lines.emplace_back(label);
    lines.push_back(std::to_string(value));
  }
  lines.push_back("Anzahl Adressen: " + std::to_string(info.addresses.size()));
  for (std::size_t i = 0; i < info.addresses.size(); ++i) {
    lines.push_back("Adresse " + std::to_string(i) + ":" + info.addresses[i]);
  }
  return lines;
}

std::vector<std::string> DriverLines(const std::string& lineName, const LineInfo& info) {
  return {"Treiber-Informationen =====================", "Treibername: " + lineName,
          "SwitchInfo: " + info.switchInfo, "ProviderInfo: " + info.providerInfo,
          "TAPI Version: " + std::to_string(info.version)};
}

}  // namespace orvane
