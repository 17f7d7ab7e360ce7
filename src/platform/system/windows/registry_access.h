#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace orvane {

struct RegistryKeyCloser {
  void operator()(HKEY key) const { RegCloseKey(key); }
};
using RegistryKey = std::unique_ptr<std::remove_pointer_t<HKEY>, RegistryKeyCloser>;

// Throws RegistryError with the system's number and text unless the call went well.
void CheckRegistryCall(LSTATUS code);

}  // namespace orvane
