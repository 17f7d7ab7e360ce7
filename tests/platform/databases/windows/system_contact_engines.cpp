#include <cstdlib>

#include "contract/databases/contact_engine.h"
#include "platform/databases/odbc/server_access.h"

namespace orvane {
namespace {

// The server that runs beside Wine (database_server.py), through this system's own ODBC.
class ServerContacts : public ContactEngine {
 public:
  DatabaseServices& Databases() override { return databases_; }
  void Select(HostEnvironment& host) override {
    host.useSqlServer = true;
    host.sqlServerName = std::getenv("ORVANE_TEST_SERVER");
    host.sqlLogin = "orvane";
    host.sqlPassword = "geheim;}";
  }
  bool Cause(DatabaseFailure failure, HostEnvironment& host) override {
    if (failure == DatabaseFailure::kLoginRefused) host.sqlPassword = "falsch";
    if (failure == DatabaseFailure::kServerNotFound) host.sqlServerName += "/nirgends";
    return failure == DatabaseFailure::kLoginRefused || failure == DatabaseFailure::kServerNotFound;
  }
  std::string Obstacle() const override {
    return std::getenv("ORVANE_TEST_SERVER") == nullptr ? "no database server" : "";
  }

 private:
  ImmediateWork work_;
  DriverThreads threads_;
  HostDatabases databases_ = ServerDatabases(SqlServerAccess(), work_, threads_);
};

}  // namespace

std::vector<ContactEngineEntry> SystemContactEngines() {
  return {{"Odbc", [] { return std::make_unique<ServerContacts>(); }}};
}

}  // namespace orvane
