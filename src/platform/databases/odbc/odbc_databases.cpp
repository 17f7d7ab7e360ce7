#include "platform/databases/odbc/odbc_databases.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <type_traits>
#include <utility>

#include "platform/databases/database_errors.h"

namespace orvane {
namespace {

constexpr std::chrono::seconds kNoticeableWait{2};
constexpr std::chrono::milliseconds kCloseWait{500};

}  // namespace

// Something that is done in a thread of its own, which outlives whoever waits for it.
template <typename Result>
struct OdbcDatabases::Attempt {
  std::mutex mutex;
  std::condition_variable changed;
  bool done = false;
  Result result{};
  std::exception_ptr failure;

  bool Wait(std::chrono::milliseconds limit) {
    std::unique_lock lock(mutex);
    return changed.wait_for(lock, limit, [this] { return done; });
  }
  bool Done() { return Wait(std::chrono::milliseconds{0}); }
  // Only when it is done.
  Result Take() {
    if (failure) std::rethrow_exception(failure);
    return std::move(result);
  }
};

template <typename Result>
std::shared_ptr<OdbcDatabases::Attempt<Result>> OdbcDatabases::Start(
    std::function<Result()> action) const {
  auto attempt = std::make_shared<Attempt<Result>>();
  threads_.Start([attempt, action = std::move(action)]() mutable {
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
  });
  return attempt;
}

template <typename Result>
bool OdbcDatabases::Await(Attempt<Result>& attempt) const {
  bool done = false;
  work_.Run([&attempt, &done, limit = limits_.wait] { done = attempt.Wait(limit); });
  return done;
}

// A connection that is open.
class OdbcDatabase : public OpenDatabase {
 public:
  OdbcDatabase(std::shared_ptr<OdbcDatabases> databases, std::string text,
               OdbcDatabases::Session session)
      : databases_(std::move(databases)), text_(std::move(text)), session_(std::move(session)) {}
  ~OdbcDatabase() override { databases_->Close(std::move(session_)); }
  OdbcDatabase(const OdbcDatabase&) = delete;
  OdbcDatabase& operator=(const OdbcDatabase&) = delete;

  std::unique_ptr<Recordset> Execute(std::string_view sql) override {
    return Ask([text = databases_->access_.translate(sql)](OdbcSession& session) {
      return session.Execute(text);
    });
  }
  void Begin() {
    Ask([](OdbcSession& session) {
      session.Begin();
      return true;
    });
  }
  void Commit() override {
    Ask([](OdbcSession& session) {
      session.Commit();
      return true;
    });
  }

 private:
  template <typename Question>
  std::invoke_result_t<Question, OdbcSession&> Ask(const Question& question) {
    if (!session_) throw ErrorOf(DatabaseFailure::kServerLost);
    try {
      return databases_->Ask(
          std::function([question, session = session_] { return question(*session); }));
    } catch (const DatabaseError& error) {
      if (error.Number() == kDbErrorTimeout) databases_->GiveUp(text_, std::move(session_));
      throw;
    }
  }

  std::shared_ptr<OdbcDatabases> databases_;
  std::string text_;
  OdbcDatabases::Session session_;
};

std::unique_ptr<OpenDatabase> OdbcDatabases::Open(const ConnectionProperties& properties) {
  const std::string text = access_.connectionString(properties);
  const auto silent = silentUntil_.find(text);
  if (silent != silentUntil_.end()) {
    if (Clock::now() < silent->second) throw NoAnswer(properties);
    silentUntil_.erase(silent);
  }
  auto session = background_.contains(text) ? TakeBackgroundSession(text, properties)
                                            : FirstSession(text, properties);
  auto database = std::make_unique<OdbcDatabase>(shared_from_this(), text, std::move(session));
  if (properties.Mode() == DbMode::kWrite) database->Begin();
  return database;
}

DatabaseError OdbcDatabases::NoAnswer(const ConnectionProperties& properties) const {
  const OdbcSubject subject = access_.subject(properties);
  return subject.isFile ? ErrorOf(DatabaseFailure::kFileTooLarge, subject.database)
                        : ErrorOf(DatabaseFailure::kServerNotFound);
}

std::shared_ptr<OdbcDatabases::Connecting> OdbcDatabases::Connect(
    const std::string& text, const ConnectionProperties& properties) const {
  return Start<Session>([text, subject = access_.subject(properties)] {
    return std::make_shared<OdbcSession>(text, subject);
  });
}

OdbcDatabases::Session OdbcDatabases::FirstSession(const std::string& text,
                                                   const ConnectionProperties& properties) {
  const auto start = Clock::now();
  const auto attempt = Connect(text, properties);
  if (!Await(*attempt)) {
    background_[text] = attempt;
    throw NoAnswer(properties);
  }
  try {
    return attempt->Take();
  } catch (const DatabaseError&) {
    // Drivers have limits of their own, and who was waited for until then is not waited for again.
    if (Clock::now() - start > kNoticeableWait) background_[text] = Connect(text, properties);
    throw;
  }
}

OdbcDatabases::Session OdbcDatabases::TakeBackgroundSession(
    const std::string& text, const ConnectionProperties& properties) {
  auto& attempt = background_.at(text);
  if (!attempt->Done()) throw NoAnswer(properties);
  const auto finished = std::move(attempt);
  background_.erase(text);
  try {
    return finished->Take();
  } catch (const DatabaseError&) {
    background_[text] = Connect(text, properties);
    throw;
  }
}

template <typename Result>
Result OdbcDatabases::Ask(std::function<Result()> question) const {
  const auto attempt = Start<Result>(std::move(question));
  if (!Await(*attempt)) throw ErrorOf(DatabaseFailure::kStatementTooLong);
  return attempt->Take();
}

void OdbcDatabases::GiveUp(const std::string& text, Session session) {
  silentUntil_[text] = Clock::now() + limits_.pause;
  threads_.Start([session = std::move(session)] { session->Cancel(); });
}

// A file is free again when this returns; a server that does not let go is not waited for.
void OdbcDatabases::Close(Session session) const {
  if (!session) return;
  try {
    Start<bool>([session = std::move(session)] { return session != nullptr; })->Wait(kCloseWait);
  } catch (const DatabaseError&) {
    // Without a thread it was closed in this one.
  }
}

}  // namespace orvane
