#include "platform/databases/jet/linux/jet_files.h"

#include <fcntl.h>

#include <algorithm>
#include <utility>

#include "platform/databases/database_errors.h"
#include "platform/databases/dialect/jet_sql.h"
#include "platform/databases/jet/jet_header.h"
#include "platform/databases/jet/linux/snapshot_loader.h"
#include "platform/databases/jet/linux/statement_names.h"
#include "platform/databases/sqlite/sqlite_database.h"
#include "platform/system/linux/file_descriptor.h"
#include "platform/text/native_path.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

// How long a file that could not be read is left alone as long as it stays the same.
constexpr std::chrono::minutes kFailurePause{5};

bool IsQuery(std::string_view sql) {
  constexpr std::string_view kSelect = "SELECT";
  const std::size_t start = sql.find_first_not_of(" \t\r\n");
  return start != std::string_view::npos &&
         EqualsIgnoringCase(sql.substr(start, kSelect.size()), kSelect);
}

// Whether there was something to add.
bool AddNames(std::vector<std::string>& known, const std::vector<std::string>& names) {
  bool added = false;
  for (const std::string& name : names) {
    const bool isKnown = std::any_of(known.begin(), known.end(), [&name](const std::string& other) {
      return EqualsIgnoringCase(name, other);
    });
    if (isKnown) continue;
    known.push_back(name);
    added = true;
  }
  return added;
}

}  // namespace

// A connection to one of the files.
class JetDatabase : public OpenDatabase {
 public:
  JetDatabase(std::shared_ptr<JetFiles> files, std::string shownPath)
      : files_(std::move(files)), shownPath_(std::move(shownPath)) {}

  std::unique_ptr<Recordset> Execute(std::string_view sql) override {
    TranslateJetSql(sql);  // what is no statement is refused before anything is read
    if (!IsQuery(sql)) throw ErrorOf(DatabaseFailure::kJetReadOnly, shownPath_);
    return SqliteDatabase(files_->TablesFor(shownPath_, sql)).Execute(sql);
  }
  void Commit() override {}  // never open for writing

 private:
  std::shared_ptr<JetFiles> files_;
  std::string shownPath_;
};

std::unique_ptr<OpenDatabase> JetFiles::Open(const ConnectionProperties& properties) {
  const std::string shownPath = properties.Get("Data Source");
  CheckJetFile(shownPath, properties.Get("Jet OLEDB:Database Password"));
  const DbMode mode = properties.Mode();
  if (mode == DbMode::kWrite || mode == DbMode::kReadWrite) {
    throw ErrorOf(DatabaseFailure::kJetReadOnly, shownPath);
  }
  Renewed(shownPath);
  return std::make_unique<JetDatabase>(shared_from_this(), shownPath);
}

bool JetFiles::Stamp::operator==(const Stamp& other) const {
  return device == other.device && number == other.number && bytes == other.bytes &&
         changed.tv_sec == other.changed.tv_sec && changed.tv_nsec == other.changed.tv_nsec;
}

JetFiles::Stamp JetFiles::StampOf(int file) {
  struct stat status {};
  if (fstat(file, &status) != 0) return {};
  return {status.st_dev, status.st_ino, status.st_size, status.st_mtim};
}

JetFiles::Snapshot& JetFiles::Renewed(const std::string& shownPath) {
  const std::filesystem::path path = NativePath(shownPath);
  const FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!file.Valid()) throw ErrorOf(DatabaseFailure::kFileUnreadable, shownPath);
  Snapshot& snapshot = snapshots_[path];
  const Stamp stamp = StampOf(file.Get());
  if (snapshot.stamp == stamp && snapshot.failure && Clock::now() < snapshot.nextTry)
    throw DatabaseError(*snapshot.failure);
  if (snapshot.stamp == stamp && snapshot.data) return snapshot;
  snapshot.data.reset();
  snapshot.failure.reset();
  try {
    snapshot.data = std::make_shared<SqliteFile>(shownPath, Read(shownPath, file.Get(), snapshot));
  } catch (const DatabaseError& error) {
    snapshot.failure = error;
    snapshot.nextTry = Clock::now() + kFailurePause;
  }
  // A file that was written to meanwhile is read again the next time.
  snapshot.stamp = StampOf(file.Get()) == stamp ? stamp : Stamp{};
  if (snapshot.failure) throw DatabaseError(*snapshot.failure);
  return snapshot;
}

std::shared_ptr<SqliteFile> JetFiles::TablesFor(const std::string& shownPath,
                                                std::string_view sql) {
  Snapshot& snapshot = snapshots_[NativePath(shownPath)];
  const StatementNames names = NamesIn(sql);
  const bool more = AddNames(snapshot.names, names.all);
  const bool moreIndexes = AddNames(snapshot.compared, names.compared);
  if (more || moreIndexes || !snapshot.data) {
    snapshot.stamp = {};
    Renewed(shownPath);
  }
  return snapshot.data;
}

SqliteHandle JetFiles::Read(const std::string& shownPath, int file, const Snapshot& wanted) {
  SqliteHandle tables;
  auto end = JetReaderEnd::kNotStarted;
  const auto deadline = Clock::now() + limits_.time;
  work_.Run([&] {
    SnapshotLoader loader;
    end = RunJetReader(reader_, file, wanted.names, limits_,
                       [&loader](std::string_view piece) { return loader.Feed(piece); });
    if (end == JetReaderEnd::kEnded) tables = loader.Take(wanted.compared, deadline);
    if (!tables && Clock::now() >= deadline) end = JetReaderEnd::kOverLimit;
  });
  if (tables) return tables;
  if (end == JetReaderEnd::kNotStarted) {
    throw ErrorOf(DatabaseFailure::kReaderMissing, reader_.string());
  }
  throw ErrorOf(end == JetReaderEnd::kOverLimit ? DatabaseFailure::kFileTooLarge
                                                : DatabaseFailure::kFileDamaged,
                shownPath);
}

}  // namespace orvane
