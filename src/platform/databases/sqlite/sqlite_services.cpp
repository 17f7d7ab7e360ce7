#include "platform/databases/sqlite/sqlite_services.h"

#include <filesystem>
#include <string>

#include "platform/databases/connection_properties.h"
#include "platform/databases/database_errors.h"
#include "platform/databases/provider_connection.h"
#include "platform/databases/sqlite/sqlite_database.h"
#include "platform/errors.h"
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

// A file that is gone, together with the journal of its writer, when the object dies.
class TemporaryFile {
 public:
  explicit TemporaryFile(fs::path path) : path_(std::move(path)) { Remove(); }
  ~TemporaryFile() { Remove(); }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  std::string Utf8() const {
    const std::u8string text = path_.u8string();
    return {text.begin(), text.end()};
  }
  const fs::path& Path() const { return path_; }

 private:
  void Remove() const {
    std::error_code ignored;
    fs::remove(path_, ignored);
    fs::path journal = path_;
    fs::remove(journal += "-journal", ignored);
  }

  fs::path path_;
};

}  // namespace

std::unique_ptr<DatabaseConnection> SqliteServices::NewConnection() {
  return std::make_unique<ProviderConnection>(OpenSqlite);
}

void SqliteServices::CompactDatabase(std::string_view source, std::string_view destination) {
  const std::string sourceFile = FileOf(source);
  const std::string shownDestination = FileOf(destination);
  std::error_code error;
  const fs::path target = fs::absolute(NativePath(shownDestination), error);
  if (fs::exists(fs::symlink_status(target, error)))
    throw ErrorOf(DatabaseFailure::kFileExists, shownDestination);

  SqliteFile original(sourceFile, DbMode::kUnknown);
  fs::path copyPath = target;
  const TemporaryFile copy(copyPath += "-compacting");
  original.CopyInto(copy.Utf8());
  SqliteFile(copy.Utf8(), DbMode::kUnknown).SyncToDisk();
  fs::rename(copy.Path(), target, error);
  if (error) throw ErrorOf(DatabaseFailure::kFileUnreadable, shownDestination);
}

}  // namespace orvane
