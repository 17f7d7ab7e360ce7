#pragma once

#include <QString>
#include <functional>

#include "platform/host_registry.h"

namespace orvane {

class RegistryText;

// The host's registry as an INI file of the user. The root key is the file's section; the key path
// and the sub-key stand before each value's name. The file is read afresh on every access, because
// the host writes it while this program runs.
class SettingsRegistry : public HostRegistry {
 public:
  // "Nordel/registry.ini" in the user's configuration folder.
  static QString DefaultFile();

  explicit SettingsRegistry(QString file = DefaultFile());

  // The application's name has no meaning here: it is part of the key path already.
  void SetApplicationName(std::string_view name) override;
  void SetRootKey(std::uint32_t root) override;
  void SetKeyPath(std::string_view path) override;

  std::optional<std::string> Read(std::string_view subKey, std::string_view name) override;
  void Write(std::string_view subKey, std::string_view name, std::string_view value) override;
  void Remove(std::string_view subKey, std::string_view name) override;

 private:
  QString FullKey(std::string_view subKey, std::string_view name) const;
  RegistryText Load() const;
  // While no other program does the same.
  void Change(const std::function<void(RegistryText&)>& change) const;
  void Store(const RegistryText& text) const;

  QString file_;
  QString root_;
  QString keyPath_;
};

}  // namespace orvane
