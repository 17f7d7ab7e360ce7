#pragma once

#include <memory>
#include <utility>

#include "platform/databases/host_databases.h"
#include "platform/databases/odbc/odbc_databases.h"

namespace orvane {

// Counts what is waited for.
class CountingWork : public LongWork {
 public:
  void Run(const std::function<void()>& work) override {
    ++runs;
    work();
  }
  int runs = 0;
};

// The databases of a host that keeps them on a server.
inline HostDatabases ServerDatabases(OdbcAccess access, LongWork& work,
                                     const DriverThreads& threads, OdbcLimits limits = {}) {
  const auto server = std::make_shared<OdbcDatabases>(std::move(access), work, threads, limits);
  return HostDatabases(
      {{}, [server](const ConnectionProperties& properties) { return server->Open(properties); }});
}

}  // namespace orvane
