#include "databases/contact_engine.h"

namespace orvane {

std::vector<ContactEngineEntry> SystemContactEngines() {
  return {};
}

}  // namespace orvane
