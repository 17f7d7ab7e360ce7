#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "platform/databases/host_databases.h"
#include "platform/databases/jet/linux/jet_files.h"
#include "platform/databases/long_work.h"

namespace orvane {

inline const std::string kJetTestData = std::string(ORVANE_TEST_DATA) + "/jet/";

// The databases of a host that keeps them in Jet files.
class JetServices {
 public:
  explicit JetServices(JetReaderLimits limits = {},
                       const std::filesystem::path& reader = ORVANE_JET_READER)
      : files_(std::make_shared<JetFiles>(reader, work_, limits)) {}

  HostDatabases& Databases() { return databases_; }
  // Throws what opening it throws.
  std::unique_ptr<DatabaseConnection> Open(const std::string& file, const std::string& password,
                                           DbMode mode = DbMode::kUnknown) {
    auto connection = databases_.NewConnection();
    connection->SetMode(mode);
    connection->SetProvider("Microsoft.Jet.OLEDB.4.0");
    connection->SetProperty("Data Source", file);
    connection->SetProperty("Jet OLEDB:Database Password", password);
    connection->Open();
    return connection;
  }

 private:
  ImmediateWork work_;
  std::shared_ptr<JetFiles> files_;
  HostDatabases databases_{
      {[this](const ConnectionProperties& properties) { return files_->Open(properties); }, {}}};
};

}  // namespace orvane
