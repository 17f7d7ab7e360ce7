#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace orvane {

// Root keys, by the numbers the system gives them.
inline constexpr std::uint32_t kRootCurrentUser = 0x80000001U;

// Access to the values below one key of the host's registry. The three properties are set once,
// before the first access. Sub-keys and value names are not case-sensitive; an empty sub-key is the
// key itself. All texts are UTF-8; numbers are read as their decimal text.
class HostRegistry {
 public:
  virtual ~HostRegistry() = default;

  // Handed over as the host's programs do it; no implementation looks at it.
  virtual void SetApplicationName(std::string_view name) = 0;
  virtual void SetRootKey(std::uint32_t root) = 0;
  // Separated by "\", without a leading one.
  virtual void SetKeyPath(std::string_view path) = 0;

  // The value as text; nothing when the key or the value does not exist. A value that is neither
  // text nor a number counts as not existing. Throws RegistryError when access is refused or the
  // store is damaged.
  virtual std::optional<std::string> Read(std::string_view subKey, std::string_view name) = 0;

  // Creates or replaces a text value, and the key where it is missing. The value is stored for good
  // when the call returns. Throws RegistryError.
  virtual void Write(std::string_view subKey, std::string_view name, std::string_view value) = 0;

  // Removes a value; one that does not exist is no failure. Throws RegistryError.
  virtual void Remove(std::string_view subKey, std::string_view name) = 0;
};

// Makes an unbound helper object.
using RegistryFactory = std::function<std::unique_ptr<HostRegistry>()>;

}  // namespace orvane
