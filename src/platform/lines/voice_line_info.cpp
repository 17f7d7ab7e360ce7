#include "platform/lines/voice_line_info.h"

#include <utility>

#include "platform/tapi_control.h"

namespace orvane {
namespace {

constexpr std::uint32_t kBearerVoice = 0x1;
constexpr std::uint32_t kBusyStation = 0x1;
constexpr std::uint32_t kFeatureDrop = 0x80;
constexpr std::uint32_t kDisconnectNormal = 0x1;
constexpr std::uint32_t kDisconnectBusy = 0x20;
constexpr std::uint32_t kMediaInteractiveVoice = 0x4;
constexpr std::uint32_t kAddressById = 0x1;
constexpr std::uint32_t kVersion2 = 0x00020000;

constexpr std::int32_t kCallStates = kLineCallIdle | kLineCallDialing | kLineCallRingback |
                                     kLineCallBusy | kLineCallConnected | kLineCallDisconnected;

}  // namespace

LineInfo VoiceLineInfo(std::string address, std::string switchInfo, std::string providerInfo) {
  LineInfo info;
  info.bearerModes = kBearerVoice;
  info.busyModes = kBusyStation;
  info.callFeatures = kFeatureDrop;
  info.callStates = static_cast<std::uint32_t>(kCallStates);
  info.disconnectModes = kDisconnectNormal | kDisconnectBusy;
  info.mediaModes = kMediaInteractiveVoice;
  info.addressModes = kAddressById;
  info.addresses = {std::move(address)};
  info.switchInfo = std::move(switchInfo);
  info.providerInfo = std::move(providerInfo);
  info.version = kVersion2;
  return info;
}

}  // namespace orvane
