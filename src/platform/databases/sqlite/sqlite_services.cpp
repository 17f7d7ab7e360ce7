#include "platform/databases/sqlite/sqlite_services.h"

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/databases/connection_properties.h"
#include "platform/databases/database_errors.h"
#include "platform/databases/provider_connection.h"
#include "platform/databases/sqlite/sqlite_database.h"
#include "platform/errors.h"
#include "platform/system/file_flush.h"
#include "platform/text/native_path.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

namespace fs = std::filesystem;

// The "Data Source" of a connection string for a Jet file.
std::string FileOf(std::string_view connectionString) {
  const ConnectionProperties properties = ConnectionProperties::Parse(connectionString);
  if (!EqualsIgnoringCase(properties.Provider(), kJetProvider)) ThrowProviderNotFound();
  return properties.Get("Data Source");
}

// An empty file that is gone when the object dies, unless it has taken another's place.
class TemporaryFile {
 public:
  // Whoever may not look into the file `like` may not look into this one.
  TemporaryFile(fs::path path, const fs::path& like) : path_(std::move(path)) {
    std::error_code ignored;
    fs::remove(path_, ignored);
    const std::ofstream created(path_);
    fs::permissions(path_, fs::status(like, ignored).permissions() | fs::perms::owner_write,
                    ignored);
  }
  ~TemporaryFile() {
    std::error_code ignored;
    fs::remove(path_, ignored);
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  const fs::path& Path() const { return path_; }

 private:
  fs::path path_;
};

// Replaces the backup by what the file holds now.
void BackUp(SqliteFile& database, const fs::path& file, const std::string& backupPath) {
  std::error_code error;
  const fs::path target = fs::absolute(NativePath(backupPath), error);
  if (fs::equivalent(target, file, error)) throw ErrorOf(DatabaseFailure::kFileExists, backupPath);
  fs::path beside = target;
  const TemporaryFile copy(beside += ".neu", file);
  database.CopyInto(copy.Path(), backupPath);
  // After a power cut there must be a whole backup under the name, so this one has to be on the
  // disk before it gets it.
  if (!FlushToDisk(copy.Path())) throw ErrorOf(DatabaseFailure::kDiskError, backupPath);
  fs::rename(copy.Path(), target, error);
  if (error) throw ErrorOf(DatabaseFailure::kFileUnreadable, backupPath);
}

}  // namespace

std::unique_ptr<DatabaseConnection> SqliteServices::NewConnection() {
  return std::make_unique<ProviderConnection>(
      [wait = writeLockWait_](const ConnectionProperties& properties) {
        return OpenSqlite(properties, wait);
      });
}

void SqliteServices::CompactDatabase(std::string_view source, const std::string& backupPath) {
  const std::string shownPath = FileOf(source);
  SqliteFile database(shownPath, DbMode::kReadWrite, writeLockWait_);
  database.KeepOthersOut();
  BackUp(database, NativePath(shownPath), backupPath);
  database.Compact();
}

}  // namespace orvane
