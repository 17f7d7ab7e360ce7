#pragma once

#include "platform/host_registry.h"

namespace orvane {

// The system's registry. What is written outlives this process at once; the system brings it to the
// disk in its own time. Errors carry the system's number and text.
class SystemRegistry : public HostRegistry {
 public:
  // The application's name has no meaning here: it is part of the key path already.
  void SetApplicationName(std::string_view name) override;
  void SetRootKey(std::uint32_t root) override;
  void SetKeyPath(std::string_view path) override;

  std::optional<std::string> Read(std::string_view subKey, std::string_view name) override;
  void Write(std::string_view subKey, std::string_view name, std::string_view value) override;
  void Remove(std::string_view subKey, std::string_view name) override;

 private:
  std::wstring FullKey(std::string_view subKey) const;

  std::uint32_t root_ = kRootCurrentUser;
  std::string keyPath_;
};

}  // namespace orvane
