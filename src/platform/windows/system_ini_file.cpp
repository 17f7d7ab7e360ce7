#include "platform/windows/system_ini_file.h"

#include <windows.h>

#include <array>

#include "platform/ansi.h"
#include "platform/native_path.h"
#include "platform/windows/wide_text.h"

namespace orvane {

std::string SystemIniFile::Read(std::string_view section, std::string_view key,
                                std::string_view file, std::string_view fallback) {
  std::array<char, kIniBufferBytes> buffer{};
  const DWORD count = GetPrivateProfileStringA(
      EncodeAnsi(section).c_str(), EncodeAnsi(key).c_str(), EncodeAnsi(fallback).c_str(),
      buffer.data(), kIniBufferBytes, EncodeAnsi(ToUtf8(NativePath(file).native())).c_str());
  return DecodeAnsi({buffer.data(), count});
}

}  // namespace orvane
