#include "platform/system/windows/registry_access.h"

#include <array>

#include "platform/errors.h"
#include "platform/system/windows/wide_text.h"

namespace orvane {
namespace {

std::string SystemMessage(LSTATUS code) {
  std::array<wchar_t, 512> text{};
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
      nullptr, static_cast<DWORD>(code), 0, text.data(), static_cast<DWORD>(text.size()), nullptr);
  return ToUtf8({text.data(), length});
}

}  // namespace

void CheckRegistryCall(LSTATUS code) {
  if (code != ERROR_SUCCESS) throw RegistryError(code, SystemMessage(code));
}

}  // namespace orvane
