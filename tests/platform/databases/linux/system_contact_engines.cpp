#include "contract/databases/contact_engine.h"
#include "platform/databases/jet/linux/jet_test_support.h"
#include "platform/databases/odbc/linux/postgres_contacts.h"

namespace orvane {
namespace {

class JetContacts : public ContactEngine {
 public:
  DatabaseServices& Databases() override { return services_.Databases(); }
  void Select(HostEnvironment& host) override { host.dataPath = kJetTestData; }
  bool Cause(DatabaseFailure failure, HostEnvironment& host) override {
    if (failure == DatabaseFailure::kPasswordRefused) {
      folder_.Write("CONTACT.FDB", ReadFile(kJetTestData + "TelList.fdb"));
    } else if (failure == DatabaseFailure::kFileNotRecognised) {
      // Jet 3
      folder_.Write("CONTACT.FDB",
                    ReadFile(kJetTestData + "CONTACT.FDB").replace(0x14, 1, 1, '\0'));
    } else {
      return other_.Cause(failure, host);
    }
    host.dataPath = folder_.Path().string() + "/";
    return true;
  }
  bool CanWrite() const override { return false; }

 private:
  TemporaryFolder folder_;
  OtherFile other_;
  JetServices services_;
};

}  // namespace

std::vector<ContactEngineEntry> SystemContactEngines() {
  return {{"Jet", [] { return std::make_unique<JetContacts>(); }},
          {"Odbc", [] { return std::make_unique<PostgresContacts>(); }}};
}

}  // namespace orvane
