#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "platform/common/long_work.h"
#include "platform/common/odbc_session.h"
#include "platform/common/open_database.h"

namespace orvane {

// How one kind of database is reached through ODBC.
struct OdbcAccess {
  // Throws DatabaseError kDriverMissing when there is no driver for it.
  std::function<std::string(const ConnectionProperties&)> connectionString;
  std::function<OdbcSession::Subject(const ConnectionProperties&)> subject;
  // A statement in the Jet dialect as the database wants it. Throws DatabaseError kDbErrorSyntax.
  std::function<std::string(std::string_view)> translate;
  // The longest that opening or a statement may take.
  std::chrono::milliseconds limit{10'000};
};

// The database server with the best of the installed drivers.
OdbcAccess SqlServerAccess();
// Files in Jet's own format with the Access driver, which there is on Windows.
OdbcAccess JetFileAccess();

// Opens databases through ODBC. Every call to a driver runs in a thread that is left behind when it
// takes longer than the limit. Whoever has not answered once is not waited for again: as long as an
// attempt in the background has not reached it, opening fails at once.
class OdbcDatabases : public std::enable_shared_from_this<OdbcDatabases> {
 public:
  OdbcDatabases(OdbcAccess access, LongWork& work) : access_(std::move(access)), work_(work) {}

  // Throws DatabaseError.
  std::unique_ptr<OpenDatabase> Open(const ConnectionProperties& properties);

 private:
  friend class OdbcDatabase;

  using Session = std::shared_ptr<OdbcSession>;
  template <typename Result>
  struct Attempt;
  using Connecting = Attempt<Session>;

  template <typename Result>
  static std::shared_ptr<Attempt<Result>> Start(std::function<Result()> action);
  template <typename Result>
  bool Await(Attempt<Result>& attempt);

  std::shared_ptr<Connecting> Connect(const std::string& text,
                                      const ConnectionProperties& properties) const;
  Session FirstSession(const std::string& text, const ConnectionProperties& properties);
  Session TakeBackgroundSession(const std::string& text, const ConnectionProperties& properties);
  std::unique_ptr<Recordset> Execute(const Session& session, std::string_view sql);

  OdbcAccess access_;
  LongWork& work_;
  // Those that do not answer, by the connection string.
  std::map<std::string, std::shared_ptr<Connecting>> background_;
};

}  // namespace orvane
