#include "contract/databases/contact_engine.h"

namespace orvane {

std::vector<ContactEngineEntry> ContactEngines() {
  std::vector<ContactEngineEntry> engines = SystemContactEngines();
  engines.push_back({"Sqlite", [] { return std::make_unique<SqliteContacts>(); }});
  engines.push_back({"Faulty", [] { return std::make_unique<FaultyContacts>(); }});
  return engines;
}

}  // namespace orvane
