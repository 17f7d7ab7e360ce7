#pragma once

#include <optional>

#include "contract/databases/contact_engine.h"
#include "platform/databases/odbc/linux/postgres_cluster.h"
#include "platform/databases/odbc/server_access.h"

namespace orvane {

// What the logic needs of a database server, from another server than the host's.
inline OdbcAccess PostgresAccess(int port) {
  OdbcAccess access = SqlServerAccess();
  access.connectionString = [port](const ConnectionProperties& properties) {
    return "DRIVER={PostgreSQL Unicode};SERVER=" + properties.Get("Data Source") +
           ";PORT=" + std::to_string(port) + ";DATABASE=" + properties.Get("Initial Catalog") +
           ";UID=" + properties.Get("User ID") + ";PWD={" +
           (properties.Get("Password") == PostgresCluster::kPassword ? "geheim;}}"
                                                                     : properties.Get("Password")) +
           "};";
  };
  return access;
}

class PostgresContacts : public ContactEngine {
 public:
  PostgresContacts() {
    if (!PostgresCluster::Programs().empty()) cluster_.emplace(TestDataText("contacts.sql"));
    databases_.emplace(
        ServerDatabases(PostgresAccess(cluster_ ? cluster_->Port() : 0), work_, threads_));
  }
  DatabaseServices& Databases() override { return *databases_; }
  void Select(HostEnvironment& host) override {
    host.useSqlServer = true;
    host.sqlServerName = "127.0.0.1";
    host.sqlLogin = "orvane";
    host.sqlPassword = PostgresCluster::kPassword;
  }
  bool Cause(DatabaseFailure failure, HostEnvironment& host) override {
    if (failure == DatabaseFailure::kLoginRefused) host.sqlPassword = "falsch";
    if (failure == DatabaseFailure::kServerNotFound) host.sqlServerName = "127.0.0.2";
    return failure == DatabaseFailure::kLoginRefused || failure == DatabaseFailure::kServerNotFound;
  }
  std::string Obstacle() const override {
    return PostgresCluster::Programs().empty() ? "no PostgreSQL on this machine" : "";
  }

 private:
  ImmediateWork work_;
  DriverThreads threads_;
  std::optional<PostgresCluster> cluster_;
  std::optional<HostDatabases> databases_;
};

}  // namespace orvane
