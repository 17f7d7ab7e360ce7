#include "platform/support/logged_databases.h"

#include <functional>
#include <utility>

#include "platform/errors.h"
#include "platform/support/error_text.h"
#include "platform/text/stopwatch.h"

namespace orvane {
namespace {

constexpr std::string_view kDataSource = "Data Source";

// Tells what stood in the way of a step, and how long it took to find out.
class FailureTeller {
 public:
  explicit FailureTeller(SupportLog& log) : log_(log) {}

  template <typename Step>
  auto Do(std::string_view database, std::string_view what, const Step& step) {
    const Stopwatch watch;
    try {
      return step();
    } catch (const DatabaseError& error) {
      const std::string description = error.Description();
      log_.Tell(LogTopic::kDatabase, {std::string(database),
                                      ", ",
                                      std::string(what),
                                      ": ",
                                      ErrorText(error.Number()),
                                      ", Nummer der Datenbank ",
                                      std::to_string(error.NativeNumber()),
                                      ", ",
                                      {LogPart::Kind::kDetail, description},
                                      error.NativeText().empty() ? "" : " / ",
                                      {LogPart::Kind::kDetail, error.NativeText()},
                                      " (",
                                      watch.Text(),
                                      ")"});
      throw;
    }
  }

 private:
  SupportLog& log_;
};

// The values of a statement are the user's; what it does to which table is enough.
std::string_view Beginning(std::string_view sql) {
  return sql.substr(0, sql.find_first_of("(,'#"));
}

class LoggedConnection : public DatabaseConnection {
 public:
  LoggedConnection(std::unique_ptr<DatabaseConnection> connection, SupportLog& log)
      : connection_(std::move(connection)), teller_(log) {}

  void SetMode(DbMode mode) override { connection_->SetMode(mode); }
  void SetCursorLocation(DbCursorLocation location) override {
    connection_->SetCursorLocation(location);
  }
  void SetProvider(std::string_view provider) override { connection_->SetProvider(provider); }
  void SetProperty(std::string_view name, std::string_view value) override {
    if (name == kDataSource) TakeName(value);
    connection_->SetProperty(name, value);
  }
  void SetConnectionString(std::string_view text) override {
    const std::size_t source = text.find(kDataSource);
    if (source != std::string_view::npos) {
      TakeName(text.substr(0, text.find(';', source)).substr(source + kDataSource.size() + 1));
    }
    connection_->SetConnectionString(text);
  }
  std::string ConnectionString() const override { return connection_->ConnectionString(); }
  bool IsOpen() const override { return connection_->IsOpen(); }
  void Open() override {
    teller_.Do(name_, "öffnen", [this] { connection_->Open(); });
  }
  std::unique_ptr<Recordset> Execute(std::string_view sql) override {
    return teller_.Do(name_, Beginning(sql), [&] { return connection_->Execute(sql); });
  }
  void Commit() override {
    teller_.Do(name_, "übernehmen", [this] { connection_->Commit(); });
  }
  void Close() override { connection_->Close(); }

 private:
  // Of a path what says which database it is.
  void TakeName(std::string_view source) { name_ = source.substr(source.find_last_of("\\/") + 1); }

  std::unique_ptr<DatabaseConnection> connection_;
  FailureTeller teller_;
  std::string name_ = "Datenbank";
};

}  // namespace

std::unique_ptr<DatabaseConnection> LoggedDatabases::NewConnection() {
  return std::make_unique<LoggedConnection>(databases_.NewConnection(), log_);
}

void LoggedDatabases::CompactDatabase(std::string_view source, const std::string& backupPath) {
  FailureTeller(log_).Do("Journal", "komprimieren",
                         [&] { databases_.CompactDatabase(source, backupPath); });
}

}  // namespace orvane
