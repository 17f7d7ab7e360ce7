#include "platform/settings/windows/system_ini_file.h"

#include <windows.h>

#include <array>

#include "platform/system/windows/wide_text.h"
#include "platform/text/native_path.h"

namespace orvane {

std::string SystemIniFile::Read(std::string_view section, std::string_view key,
                                std::string_view file, std::string_view fallback) {
  std::array<char, kIniBufferBytes> buffer{};
  const DWORD count = GetPrivateProfileStringA(
      ToSystemAnsi(section).c_str(), ToSystemAnsi(key).c_str(), ToSystemAnsi(fallback).c_str(),
      buffer.data(), kIniBufferBytes, ToSystemAnsi(ToUtf8(NativePath(file).native())).c_str());
  return FromSystemAnsi({buffer.data(), count});
}

}  // namespace orvane
