#include "dialing/redial_memory.h"

#include "app/attempt.h"
#include "app/host_paths.h"
#include "app/host_settings.h"

namespace orvane {

void RedialMemory::Record(const std::string& numberText) {
  last_ = numberText;
  background_.Do([newRegistry = newRegistry_, numberText] {
    Attempt([&] {
      const auto registry = newRegistry();
      BindHostRegistry(*registry);
      Store(*registry, setting::kRedial, numberText);
    });
  });
}

std::string RedialMemory::Text() const {
  if (last_) return *last_;
  const auto registry = newRegistry_();
  BindHostRegistry(*registry);
  return Stored(*registry, setting::kRedial).value_or("");
}

}  // namespace orvane
