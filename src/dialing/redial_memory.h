#pragma once

#include <optional>
#include <string>

#include "platform/background.h"
#include "platform/host_registry.h"

namespace orvane {

// The text of the number field at the last dial. It is stored beside the window's thread: a call is
// worth more than its redial entry.
class RedialMemory {
 public:
  // The background outlives the memory.
  RedialMemory(RegistryFactory newRegistry, Background& background)
      : newRegistry_(std::move(newRegistry)), background_(background) {}

  void Record(const std::string& numberText);
  // Empty when nothing was dialled yet. Throws RegistryError.
  std::string Text() const;

 private:
  RegistryFactory newRegistry_;
  Background& background_;
  // Known before it is stored.
  std::optional<std::string> last_;
};

}  // namespace orvane
