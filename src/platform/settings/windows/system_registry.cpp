#include "platform/settings/windows/system_registry.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <vector>

#include "platform/system/windows/registry_access.h"
#include "platform/system/windows/wide_text.h"

namespace orvane {
namespace {

constexpr DWORD kTextsAndNumbers = RRF_RT_REG_SZ | RRF_RT_REG_DWORD | RRF_RT_REG_QWORD;
constexpr std::size_t kUsualValueBytes = 512;

HKEY RootKey(std::uint32_t number) {
  // The system's own numbers are sign-extended to the size of a pointer.
  return reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(number)));
}

struct Value {
  DWORD type = REG_NONE;
  std::vector<BYTE> bytes;
};

// Nothing when the key or the value is missing, or is of another type. The value may grow between
// two looks at it.
std::optional<Value> Query(HKEY root, const std::wstring& key, const std::wstring& name) {
  Value value;
  value.bytes.resize(kUsualValueBytes);
  while (true) {
    DWORD size = static_cast<DWORD>(value.bytes.size());
    const LSTATUS code = RegGetValueW(root, key.c_str(), name.c_str(), kTextsAndNumbers,
                                      &value.type, value.bytes.data(), &size);
    if (code == ERROR_FILE_NOT_FOUND || code == ERROR_UNSUPPORTED_TYPE) return std::nullopt;
    if (code == ERROR_MORE_DATA) {
      value.bytes.resize(value.bytes.size() * 2);
      continue;
    }
    CheckRegistryCall(code);
    value.bytes.resize(size);
    return value;
  }
}

template <typename Number>
std::string NumberText(const Value& value) {
  Number number{};
  std::memcpy(&number, value.bytes.data(), std::min(sizeof number, value.bytes.size()));
  return std::to_string(number);
}

std::string TextOf(const Value& value) {
  if (value.type == REG_DWORD) return NumberText<std::int32_t>(value);
  if (value.type == REG_QWORD) return NumberText<std::int64_t>(value);
  std::wstring text(value.bytes.size() / sizeof(wchar_t), L'\0');
  std::memcpy(text.data(), value.bytes.data(), text.size() * sizeof(wchar_t));
  // Some programs write their whole buffer, with whatever lies behind the end of the text.
  return ToUtf8(text.substr(0, text.find(L'\0')));
}

}  // namespace

void SystemRegistry::SetApplicationName(std::string_view /*name*/) {}

void SystemRegistry::SetRootKey(std::uint32_t root) {
  root_ = root;
}

void SystemRegistry::SetKeyPath(std::string_view path) {
  keyPath_ = path;
}

std::wstring SystemRegistry::FullKey(std::string_view subKey) const {
  std::string key = keyPath_;
  if (!subKey.empty()) key += "\\" + std::string(subKey);
  return ToWide(key);
}

std::optional<std::string> SystemRegistry::Read(std::string_view subKey, std::string_view name) {
  const auto value = Query(RootKey(root_), FullKey(subKey), ToWide(name));
  return value ? std::optional(TextOf(*value)) : std::nullopt;
}

void SystemRegistry::Write(std::string_view subKey, std::string_view name, std::string_view value) {
  HKEY opened = nullptr;
  CheckRegistryCall(RegCreateKeyExW(RootKey(root_), FullKey(subKey).c_str(), 0, nullptr, 0,
                                    KEY_SET_VALUE, nullptr, &opened, nullptr));
  const RegistryKey key(opened);
  const std::wstring text = ToWide(value);
  const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  CheckRegistryCall(RegSetValueExW(key.get(), ToWide(name).c_str(), 0, REG_SZ,
                                   reinterpret_cast<const BYTE*>(text.c_str()),
                                   static_cast<DWORD>(bytes)));
}

void SystemRegistry::Remove(std::string_view subKey, std::string_view name) {
  const LSTATUS code =
      RegDeleteKeyValueW(RootKey(root_), FullKey(subKey).c_str(), ToWide(name).c_str());
  if (code != ERROR_FILE_NOT_FOUND) CheckRegistryCall(code);
}

}  // namespace orvane
