#include "platform/common/odbc_databases.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <exception>
#include <thread>
#include <utility>

#include "platform/common/jet_header.h"
#include "platform/common/jet_sql.h"
#include "platform/native_path.h"

namespace orvane {
namespace {

constexpr std::string_view kSqlServer = "SQL Server";
constexpr std::chrono::seconds kNoticeableWait{2};

// The newest first; FreeTDS is what other systems than Windows have.
constexpr std::array<std::string_view, 8> kServerDrivers{"ODBC Driver 18 for SQL Server",
                                                         "ODBC Driver 17 for SQL Server",
                                                         "ODBC Driver 13 for SQL Server",
                                                         "ODBC Driver 11 for SQL Server",
                                                         "SQL Server Native Client 11.0",
                                                         "SQL Server Native Client 10.0",
                                                         "FreeTDS",
                                                         "SQL Server"};
constexpr std::array<std::string_view, 2> kJetDrivers{"Microsoft Access Driver (*.mdb, *.accdb)",
                                                      "Microsoft Access Driver (*.mdb)"};

template <std::size_t count>
std::string BestDriver(const std::array<std::string_view, count>& wanted,
                       std::string_view database) {
  const std::vector<std::string> installed = InstalledOdbcDrivers();
  for (const std::string_view driver : wanted) {
    if (std::find(installed.begin(), installed.end(), driver) != installed.end()) {
      return std::string(driver);
    }
  }
  throw ErrorOf(DatabaseFailure::kDriverMissing, database);
}

std::string Braced(std::string_view value) {
  std::string result = "{";
  for (const char c : value) result.append(c == '}' ? 2U : 1U, c);
  return result + '}';
}

// One pair of an ODBC connection string. Not every driver takes braces off where none are needed.
std::string Pair(std::string_view name, std::string_view value) {
  const bool plain = value.find_first_of("[]{}();?*=!@") == std::string_view::npos &&
                     !value.starts_with(' ') && !value.ends_with(' ');
  return std::string(name) + "=" + (plain ? std::string(value) : Braced(value)) + ";";
}

// FreeTDS wants a port, which others take behind a comma, under a name of its own. It asks the
// machine itself for the port of a named instance, unless it is told one.
std::string FreeTdsServer(const std::string& server) {
  const std::size_t comma = server.find(',');
  const bool named = server.find('\\') != std::string::npos;
  std::string result = Pair("SERVER", server.substr(0, comma));
  if (comma != std::string::npos) {
    result += Pair("PORT", server.substr(comma + 1));
  } else if (!named) {
    result += "PORT=1433;";
  }
  return result + "TDS_Version=7.4;ClientCharset=UTF-8;";
}

std::string ServerString(const ConnectionProperties& properties) {
  const std::string driver = BestDriver(kServerDrivers, kSqlServer);
  const std::string server = properties.Get("Data Source");
  std::string result = "DRIVER=" + Braced(driver) + ";";
  result += driver == "FreeTDS" ? FreeTdsServer(server)
                                : Pair("SERVER", server) + "TrustServerCertificate=yes;";
  result += Pair("DATABASE", properties.Get("Initial Catalog"));
  if (!properties.Get("Integrated Security").empty()) return result + "Trusted_Connection=yes;";
  return result + Pair("UID", properties.Get("User ID")) + Pair("PWD", properties.Get("Password"));
}

std::string JetString(const ConnectionProperties& properties) {
  const std::u8string file = NativePath(properties.Get("Data Source")).u8string();
  return "DRIVER=" + Braced(BestDriver(kJetDrivers, "Jet-Datenbanken")) + ";" +
         Pair("DBQ", std::string(file.begin(), file.end())) +
         Pair("PWD", properties.Get("Jet OLEDB:Database Password"));
}

}  // namespace

OdbcAccess SqlServerAccess() {
  return {ServerString,
          [](const ConnectionProperties& properties) {
            return OdbcSession::Subject{properties.Get("User ID"), std::string(kSqlServer)};
          },
          TranslateJetSqlForServer};
}

OdbcAccess JetFileAccess() {
  return {JetString,
          [](const ConnectionProperties& properties) {
            return OdbcSession::Subject{{}, properties.Get("Data Source"), true};
          },
          OrderedJetSql};
}

// Something that is done in a thread of its own, which outlives whoever waits for it.
template <typename Result>
struct OdbcDatabases::Attempt {
  std::mutex mutex;
  std::condition_variable changed;
  bool done = false;
  Result result{};
  std::exception_ptr failure;

  bool Done() {
    const std::lock_guard lock(mutex);
    return done;
  }
  // Only when it is done.
  Result Take() {
    if (failure) std::rethrow_exception(failure);
    return std::move(result);
  }
};

template <typename Result>
std::shared_ptr<OdbcDatabases::Attempt<Result>> OdbcDatabases::Start(
    std::function<Result()> action) {
  auto attempt = std::make_shared<Attempt<Result>>();
  std::thread([attempt, action = std::move(action)]() mutable {
    Result result{};
    std::exception_ptr failure;
    try {
      result = action();
    } catch (...) {
      failure = std::current_exception();
    }
    // What the action holds may take its time to go, too.
    action = nullptr;
    const std::lock_guard lock(attempt->mutex);
    attempt->result = std::move(result);
    attempt->failure = failure;
    attempt->done = true;
    attempt->changed.notify_all();
  }).detach();
  return attempt;
}

template <typename Result>
bool OdbcDatabases::Await(Attempt<Result>& attempt) {
  bool done = false;
  work_.Run([&attempt, &done, limit = access_.limit] {
    std::unique_lock lock(attempt.mutex);
    done = attempt.changed.wait_for(lock, limit, [&attempt] { return attempt.done; });
  });
  return done;
}

// A connection that is open.
class OdbcDatabase : public OpenDatabase {
 public:
  OdbcDatabase(std::shared_ptr<OdbcDatabases> databases, std::shared_ptr<OdbcSession> session)
      : databases_(std::move(databases)), session_(std::move(session)) {}
  std::unique_ptr<Recordset> Execute(std::string_view sql) override {
    return databases_->Execute(session_, sql);
  }

 private:
  std::shared_ptr<OdbcDatabases> databases_;
  std::shared_ptr<OdbcSession> session_;
};

std::unique_ptr<OpenDatabase> OdbcDatabases::Open(const ConnectionProperties& properties) {
  const std::string text = access_.connectionString(properties);
  auto session = background_.contains(text) ? TakeBackgroundSession(text, properties)
                                            : FirstSession(text, properties);
  return std::make_unique<OdbcDatabase>(shared_from_this(), std::move(session));
}

std::shared_ptr<OdbcDatabases::Connecting> OdbcDatabases::Connect(
    const std::string& text, const ConnectionProperties& properties) const {
  return Start<Session>([text, subject = access_.subject(properties)] {
    return std::make_shared<OdbcSession>(text, subject);
  });
}

OdbcDatabases::Session OdbcDatabases::FirstSession(const std::string& text,
                                                   const ConnectionProperties& properties) {
  const auto start = std::chrono::steady_clock::now();
  const auto attempt = Connect(text, properties);
  if (!Await(*attempt)) {
    background_[text] = attempt;
    throw ErrorOf(DatabaseFailure::kServerNotFound);
  }
  try {
    return attempt->Take();
  } catch (const DatabaseError&) {
    // Drivers have limits of their own, and who was waited for until then is not waited for again.
    if (std::chrono::steady_clock::now() - start > kNoticeableWait) {
      background_[text] = Connect(text, properties);
    }
    throw;
  }
}

OdbcDatabases::Session OdbcDatabases::TakeBackgroundSession(
    const std::string& text, const ConnectionProperties& properties) {
  auto& attempt = background_.at(text);
  if (!attempt->Done()) throw ErrorOf(DatabaseFailure::kServerNotFound);
  const auto finished = std::move(attempt);
  background_.erase(text);
  try {
    return finished->Take();
  } catch (const DatabaseError&) {
    background_[text] = Connect(text, properties);
    throw;
  }
}

std::unique_ptr<Recordset> OdbcDatabases::Execute(const Session& session, std::string_view sql) {
  using Rows = std::unique_ptr<Recordset>;
  const auto attempt =
      Start<Rows>([session, text = access_.translate(sql)] { return session->Execute(text); });
  if (!Await(*attempt)) throw ErrorOf(DatabaseFailure::kStatementTooLong);
  return attempt->Take();
}

}  // namespace orvane
