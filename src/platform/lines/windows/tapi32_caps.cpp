#include "platform/lines/windows/tapi32_caps.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "platform/lines/line_errors.h"
#include "platform/lines/windows/tapi32_errors.h"
#include "platform/system/windows/wide_text.h"

namespace orvane {
namespace {

constexpr std::size_t kRoomForTextsBytes = 1024;
// No driver has so much to tell; one that asks for more is broken.
constexpr std::size_t kMostBytes = 1024 * 1024;
constexpr DWORD kMostAddresses = 256;

// A record of TAPI's with the texts that follow it in the same memory.
template <typename Record>
class VariableRecord {
 public:
  // `read` fills a Record and gives TAPI's result; it is asked again when the room was too small.
  template <typename Read>
  explicit VariableRecord(const Read& read) {
    std::size_t needed = sizeof(Record) + kRoomForTextsBytes;
    std::int32_t result = 0;
    do {
      if (needed > kMostBytes) throw MakeLineError(static_cast<std::int32_t>(LINEERR_NOMEM));
      memory_.assign(needed, std::byte{});
      Raw().dwTotalSize = static_cast<DWORD>(memory_.size());
      result = read(&Raw());
      needed = Raw().dwNeededSize;
    } while ((result == 0 || result == static_cast<std::int32_t>(LINEERR_STRUCTURETOOSMALL)) &&
             needed > memory_.size());
    Checked(result);
  }

  const Record* operator->() const { return reinterpret_cast<const Record*>(memory_.data()); }

  // Some drivers count the closing zero, some put several texts into one, some point elsewhere.
  std::string Text(DWORD offset, DWORD size) const {
    if (offset > memory_.size() || size > memory_.size() - offset) return {};
    std::wstring text(size / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), memory_.data() + offset, text.size() * sizeof(wchar_t));
    text.erase(text.find_last_not_of(L'\0') + 1);
    std::replace(text.begin(), text.end(), L'\0', L' ');
    return ToUtf8(text);
  }

 private:
  Record& Raw() { return *reinterpret_cast<Record*>(memory_.data()); }

  std::vector<std::byte> memory_;
};

using DeviceCaps = VariableRecord<LINEDEVCAPS>;
using AddressCaps = VariableRecord<LINEADDRESSCAPS>;

DeviceCaps ReadDevice(const Tapi32Api& api, const Tapi32Device& device) {
  return DeviceCaps([&](LINEDEVCAPS* caps) {
    return api.deviceCaps(device.app, device.id, device.version, 0, caps);
  });
}

void TakeCallCapabilities(const AddressCaps& caps, LineInfo& info) {
  info.busyModes = caps->dwBusyModes;
  info.callFeatures = caps->dwCallFeatures;
  info.callInfoStates = caps->dwCallInfoStates;
  info.callStates = caps->dwCallStates;
  info.dialToneModes = caps->dwDialToneModes;
  info.disconnectModes = caps->dwDisconnectModes;
  info.parkModes = caps->dwParkModes;
}

void TakeAddress(const Tapi32Api& api, const Tapi32Device& device, DWORD address, LineInfo& info) {
  std::string text;
  try {
    const AddressCaps caps([&](LINEADDRESSCAPS* record) {
      return api.addressCaps(device.app, device.id, address, device.version, 0, record);
    });
    if (address == 0) TakeCallCapabilities(caps, info);
    text = caps.Text(caps->dwAddressOffset, caps->dwAddressSize);
  } catch (const TapiError&) {
    // The other addresses may answer.
  }
  info.addresses.push_back(std::move(text));
}

}  // namespace

std::string ReadLineName(const Tapi32Api& api, const Tapi32Device& device) {
  try {
    const DeviceCaps caps = ReadDevice(api, device);
    return caps.Text(caps->dwLineNameOffset, caps->dwLineNameSize);
  } catch (const TapiError&) {
    return {};
  }
}

LineInfo ReadLineInfo(const Tapi32Api& api, const Tapi32Device& device) {
  const DeviceCaps caps = ReadDevice(api, device);
  LineInfo info;
  info.bearerModes = caps->dwBearerModes;
  info.mediaModes = caps->dwMediaModes;
  info.addressModes = caps->dwAddressModes;
  info.switchInfo = caps.Text(caps->dwSwitchInfoOffset, caps->dwSwitchInfoSize);
  info.providerInfo = caps.Text(caps->dwProviderInfoOffset, caps->dwProviderInfoSize);
  info.version = device.version;
  const DWORD count = std::min(caps->dwNumAddresses, kMostAddresses);
  for (DWORD address = 0; address < count; ++address) {
    TakeAddress(api, device, address, info);
  }
  return info;
}

}  // namespace orvane
