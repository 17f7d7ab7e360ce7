#include "platform/serial/windows/com_ports.h"

#include <array>

#include "platform/system/windows/registry_access.h"
#include "platform/system/windows/wide_text.h"

namespace orvane {
namespace {

constexpr const wchar_t* kPortList = L"Hardware\\Devicemap\\SerialComm";
constexpr std::size_t kNameCharacters = 260;
constexpr std::size_t kTextCharacters = 4096;

}  // namespace

std::vector<std::string> SerialPortNames() {
  HKEY opened = nullptr;
  const LSTATUS code = RegOpenKeyExW(HKEY_LOCAL_MACHINE, kPortList, 0, KEY_QUERY_VALUE, &opened);
  // A machine that never had a port has no list.
  if (code == ERROR_FILE_NOT_FOUND) return {};
  CheckRegistryCall(code);
  const RegistryKey key(opened);
  std::vector<std::string> ports;
  for (DWORD index = 0;; ++index) {
    std::array<wchar_t, kNameCharacters> name{};
    std::array<wchar_t, kTextCharacters> text{};
    auto nameLength = static_cast<DWORD>(name.size());
    // One character less, so that a zero always ends the text.
    auto textBytes = static_cast<DWORD>((text.size() - 1) * sizeof(wchar_t));
    DWORD type = REG_NONE;
    const LSTATUS found = RegEnumValueW(key.get(), index, name.data(), &nameLength, nullptr, &type,
                                        reinterpret_cast<BYTE*>(text.data()), &textBytes);
    if (found == ERROR_MORE_DATA) continue;
    if (found != ERROR_SUCCESS) return ports;
    if (type == REG_SZ) ports.push_back(ToUtf8(text.data()));
  }
}

}  // namespace orvane
