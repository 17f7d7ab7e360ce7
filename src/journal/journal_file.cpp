#include "journal/journal_file.h"

#include <filesystem>
#include <system_error>

#include "journal/field_access.h"
#include "journal/journal_healing.h"
#include "journal/journal_rows.h"
#include "journal/journal_statements.h"
#include "platform/errors.h"
#include "platform/text/native_path.h"
#include "platform/text/stopwatch.h"

namespace orvane {
namespace {

constexpr const char* kPassword = "vnar";
// Of engines that give a writer no journal of his own.
constexpr int kNumberAttempts = 5;
constexpr std::int32_t kNativeDuplicate = -1605;

// Closes the connection, which drops what was not committed.
class Closing {
 public:
  explicit Closing(DatabaseConnection& connection) : connection_(connection) {}
  ~Closing() { connection_.Close(); }
  Closing(const Closing&) = delete;
  Closing& operator=(const Closing&) = delete;

 private:
  DatabaseConnection& connection_;
};

}  // namespace

void SetJournalProperties(DatabaseConnection& connection, const std::string& path, DbMode mode) {
  connection.SetMode(mode);
  connection.SetCursorLocation(DbCursorLocation::kClient);
  connection.SetProvider("Microsoft.Jet.OLEDB.4.0");
  connection.SetProperty("Data Source", path);
  connection.SetProperty("Jet OLEDB:Database Password", kPassword);
  connection.SetProperty("Persist Security Info", "False");
}

JournalFile::JournalFile(DatabaseServices& databases, FolderLocks& locks, SupportLog& log,
                         Warn warn)
    : databases_(databases),
      locks_(locks),
      log_(log),
      warn_(std::move(warn)),
      connection_(databases.NewConnection()) {}

void JournalFile::Renew() {
  connection_ = databases_.NewConnection();
}

void JournalFile::ReopenTelDB(const std::string& userPath, Use use) {
  if (connection_->IsOpen()) return;
  HealJournal(userPath, databases_, log_);
  if (use == Use::kRead) {
    // Takes no write lock, and yet may put right what a program left behind that died writing. The
    // stored connection string stays as it is: the next call has to be written.
    SetJournalProperties(*connection_, userPath + kJournalFile, DbMode::kUnknown);
    connection_->Open();
    return;
  }
  CheckLocks(userPath);
  if (connectionString_.empty() || openedFor_ != userPath) {
    SetJournalProperties(*connection_, userPath + kJournalFile, DbMode::kWrite);
  } else {
    connection_->SetConnectionString(connectionString_);
  }
  connection_->Open();
  connectionString_ = connection_->ConnectionString();
  openedFor_ = userPath;
}

// Once for each folder and run of the program.
void JournalFile::CheckLocks(const std::string& userPath) {
  if (!checked_.insert(userPath).second) return;
  const std::string folder = userPath + "res\\";
  const std::string obstacle = locks_.Obstacle(folder);
  if (obstacle.empty()) return;
  warn_(DatabaseError(kDbErrorFailed,
                      "Der Ordner sperrt Dateien nicht für andere Rechner: " + folder + " (" +
                          obstacle +
                          "). Anrufe werden gespeichert, können aber verloren gehen, wenn mehrere "
                          "Programme gleichzeitig schreiben."));
}

// A statement whose refusal is not told to anyone.
std::unique_ptr<Recordset> JournalFile::ExecuteQuietly(const std::string& sql) {
  try {
    return connection_->Execute(sql);
  } catch (const DatabaseError& error) {
    if (error.OfStorage()) throw;
    return nullptr;
  }
}

void JournalFile::Insert(const std::string& userPath, const NewCall& call) {
  const Stopwatch watch;
  for (int attempt = 1; attempt <= kNumberAttempts; ++attempt) {
    ReopenTelDB(userPath, Use::kWrite);
    const Closing closing(*connection_);
    if (TryInsert(call) == Inserted::kDone) break;
  }
  log_.Tell(LogTopic::kCall, {"Anruf ins Journal geschrieben: ", watch.Text()});
}

// The number, the row and the trimming are one change.
JournalFile::Inserted JournalFile::TryInsert(const NewCall& call) {
  const auto rows = ExecuteQuietly(MaxIdStatement(call.direction));
  // A guessed number would be another call's or, if small, trim this call away at once.
  if (!rows || rows->AtEnd()) return Inserted::kDone;
  const std::int64_t id = IntegerOf(rows->Field(0)) + 1;
  try {
    connection_->Execute(InsertStatement(call, id));
  } catch (const DatabaseError& error) {
    if (error.OfStorage()) throw;
    return error.NativeNumber() == kNativeDuplicate ? Inserted::kNumberTaken : Inserted::kDone;
  }
  ExecuteQuietly(TrimStatement(call.direction, id));
  connection_->Commit();
  return Inserted::kDone;
}

void JournalFile::Complete(const std::string& userPath, const EndedCall& call) {
  const Stopwatch watch;
  ReopenTelDB(userPath, Use::kWrite);
  const Closing closing(*connection_);
  if (ExecuteQuietly(UpdateStatement(call))) connection_->Commit();
  log_.Tell(LogTopic::kCall, {"Dauer ins Journal geschrieben: ", watch.Text()});
}

std::vector<JournalCall> JournalFile::Read(const std::string& userPath, const std::string& query) {
  ReopenTelDB(userPath, Use::kRead);
  const Closing closing(*connection_);
  const auto rows = ExecuteQuietly(query);
  return rows ? JournalCallsOf(*rows) : std::vector<JournalCall>();
}

std::vector<JournalDuration> JournalFile::ReadDurations(const std::string& userPath,
                                                        CallDirection direction) {
  ReopenTelDB(userPath, Use::kRead);
  const Closing closing(*connection_);
  const auto rows = ExecuteQuietly(DurationsStatement(direction));
  return rows ? JournalDurationsOf(*rows) : std::vector<JournalDuration>();
}

void JournalFile::CompactTelList(const std::string& userPath) {
  std::error_code error;
  const std::string journal = userPath + kJournalFile;
  const auto size = std::filesystem::file_size(NativePath(journal), error);
  if (error || size <= kJournalCompactAboveBytes) return;
  try {
    databases_.CompactDatabase("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + journal +
                                   ";Jet OLEDB:Database Password=" + kPassword,
                               userPath + "res\\TelList.OLD");
  } catch (const PlatformError&) {
    // A journal that stays large is still a journal.
  }
}

}  // namespace orvane
