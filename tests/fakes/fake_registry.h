#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>

#include "platform/errors.h"
#include "platform/host_registry.h"

namespace orvane {

// The registry of one machine in memory; several helper objects may be bound to it.
struct FakeRegistryStore {
  // Lower-case "root key\sub-key\name" to value.
  std::map<std::string, std::string> values;
  bool denyReads = false;
  bool denyWrites = false;
  // The one value that cannot be written.
  std::string deniedName;
};

class FakeRegistry : public HostRegistry {
 public:
  explicit FakeRegistry(std::shared_ptr<FakeRegistryStore> store) : store_(std::move(store)) {}

  void SetApplicationName(std::string_view /*name*/) override {}
  void SetRootKey(std::uint32_t root) override { root_ = root; }
  void SetKeyPath(std::string_view path) override { path_ = path; }

  std::optional<std::string> Read(std::string_view subKey, std::string_view name) override {
    if (store_->denyReads) throw RegistryError(5, "Zugriff verweigert");
    const auto found = store_->values.find(Key(subKey, name));
    return found == store_->values.end() ? std::nullopt : std::optional(found->second);
  }

  void Write(std::string_view subKey, std::string_view name, std::string_view value) override {
    if (store_->denyWrites || (!store_->deniedName.empty() && name == store_->deniedName))
      throw RegistryError(5, "Zugriff verweigert");
    store_->values[Key(subKey, name)] = value.substr(0, value.find('\0'));
  }
  void Remove(std::string_view subKey, std::string_view name) override {
    if (store_->denyWrites) throw RegistryError(5, "Zugriff verweigert");
    store_->values.erase(Key(subKey, name));
  }

 private:
  std::string Key(std::string_view subKey, std::string_view name) const {
    std::string key = std::to_string(root_) + "\\" + path_ + "\\";
    key.append(subKey).append("\\").append(name);
    for (char& c : key) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return key;
  }

  std::shared_ptr<FakeRegistryStore> store_;
  std::uint32_t root_ = 0;
  std::string path_;
};

inline RegistryFactory FakeRegistryFactory(std::shared_ptr<FakeRegistryStore> store) {
  return [store = std::move(store)] { return std::make_unique<FakeRegistry>(store); };
}

}  // namespace orvane
