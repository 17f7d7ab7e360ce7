#include "databases/contact_engine.h"
#include "databases/linux/jet_test_support.h"
#include "databases/linux/postgres_contacts.h"

namespace orvane {
namespace {

class JetContacts : public ContactEngine {
 public:
  DatabaseServices& Databases() override { return services_.Databases(); }
  void Select(HostEnvironment& host) override { host.dataPath = kJetTestData; }

 private:
  JetServices services_;
};

}  // namespace

std::vector<ContactEngineEntry> SystemContactEngines() {
  return {{"Jet", [] { return std::make_unique<JetContacts>(); }},
          {"Odbc", [] { return std::make_unique<PostgresContacts>(); }}};
}

}  // namespace orvane
