#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "platform/databases/driver_threads.h"
#include "platform/databases/long_work.h"
#include "platform/databases/odbc/odbc_access.h"
#include "platform/databases/odbc/odbc_session.h"
#include "platform/databases/open_database.h"

namespace orvane {

struct OdbcLimits {
  // The longest that opening or a statement may take.
  std::chrono::milliseconds wait{10'000};
  // After a statement that took longer, how long nobody asks again.
  std::chrono::milliseconds pause{60'000};
};

// Opens databases through ODBC. Every call to a driver runs in a thread that is left behind when it
// takes longer than the limit. Whoever has not answered once is not waited for again: as long as an
// attempt in the background has not reached it, or a statement was too much for it a short time
// ago, opening fails at once.
class OdbcDatabases : public std::enable_shared_from_this<OdbcDatabases> {
 public:
  OdbcDatabases(OdbcAccess access, LongWork& work, DriverThreads threads, OdbcLimits limits = {})
      : access_(std::move(access)), work_(work), threads_(std::move(threads)), limits_(limits) {}

  // Throws DatabaseError. With DbMode::kWrite all or nothing is kept; others are not kept out.
  std::unique_ptr<OpenDatabase> Open(const ConnectionProperties& properties);

 private:
  friend class OdbcDatabase;

  using Clock = std::chrono::steady_clock;
  using Session = std::shared_ptr<OdbcSession>;
  template <typename Result>
  struct Attempt;
  using Connecting = Attempt<Session>;

  template <typename Result>
  std::shared_ptr<Attempt<Result>> Start(std::function<Result()> action) const;
  template <typename Result>
  bool Await(Attempt<Result>& attempt) const;

  DatabaseError NoAnswer(const ConnectionProperties& properties) const;
  std::shared_ptr<Connecting> Connect(const std::string& text,
                                      const ConnectionProperties& properties) const;
  Session FirstSession(const std::string& text, const ConnectionProperties& properties);
  Session TakeBackgroundSession(const std::string& text, const ConnectionProperties& properties);
  template <typename Result>
  Result Ask(std::function<Result()> question) const;
  // Leaves a statement that takes too long to itself.
  void GiveUp(const std::string& text, Session session);
  void Close(Session session) const;

  OdbcAccess access_;
  LongWork& work_;
  DriverThreads threads_;
  OdbcLimits limits_;
  // Those that do not answer, by the connection string.
  std::map<std::string, std::shared_ptr<Connecting>> background_;
  std::map<std::string, Clock::time_point> silentUntil_;
};

}  // namespace orvane
