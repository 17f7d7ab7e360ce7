#pragma once

#include <windows.h>

#include <string>

namespace orvane {

// Puts an empty key in the place of one of the registry's roots for this process; everything that
// was written there is gone when the object dies.
class RegistrySandbox {
 public:
  explicit RegistrySandbox(HKEY root = HKEY_CURRENT_USER) : root_(root) {
    RegCreateKeyExW(HKEY_CURRENT_USER, path_.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_,
                    nullptr);
    RegOverridePredefKey(root_, key_);
  }
  ~RegistrySandbox() {
    RegOverridePredefKey(root_, nullptr);
    RegCloseKey(key_);
    RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str());
  }
  RegistrySandbox(const RegistrySandbox&) = delete;
  RegistrySandbox& operator=(const RegistrySandbox&) = delete;

  // A value of any type below the root.
  void Put(const std::wstring& key, const std::wstring& name, DWORD type, const void* bytes,
           std::size_t size) const {
    RegSetKeyValueW(root_, key.c_str(), name.c_str(), type, bytes, static_cast<DWORD>(size));
  }
  void Put(const std::wstring& key, const std::wstring& name, const std::wstring& text,
           DWORD type = REG_SZ) const {
    Put(key, name, type, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
  }

 private:
  HKEY root_;
  std::wstring path_ = L"Software\\OrvaneTests" + std::to_wstring(GetCurrentProcessId());
  HKEY key_ = nullptr;
};

}  // namespace orvane
