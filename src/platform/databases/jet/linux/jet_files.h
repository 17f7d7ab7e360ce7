#pragma once

#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/databases/jet/linux/jet_reader_process.h"
#include "platform/databases/long_work.h"
#include "platform/databases/open_database.h"
#include "platform/databases/sqlite/sqlite_file.h"
#include "platform/errors.h"

namespace orvane {

// Files in Jet's own format, for reading. What statements ask for is read once, by a process of its
// own, and kept in memory until the file changes.
class JetFiles : public std::enable_shared_from_this<JetFiles> {
 public:
  // `reader` is the program that reads them.
  JetFiles(std::filesystem::path reader, LongWork& work, JetReaderLimits limits = {})
      : reader_(std::move(reader)), work_(work), limits_(limits) {}

  // Throws DatabaseError: password refused, opened in a mode that writes, unreadable, damaged.
  std::unique_ptr<OpenDatabase> Open(const ConnectionProperties& properties);

 private:
  friend class JetDatabase;

  using Clock = std::chrono::steady_clock;

  // Which state of a file it is.
  struct Stamp {
    dev_t device = 0;
    ino_t number = 0;
    off_t bytes = 0;
    timespec changed{};
    bool operator==(const Stamp& other) const;
  };
  struct Snapshot {
    Stamp stamp;
    // Why this state of the file cannot be read. It may have taken long to find out.
    std::optional<DatabaseError> failure;
    Clock::time_point nextTry;
    std::vector<std::string> names;     // of the tables and columns that were asked for
    std::vector<std::string> compared;  // of those that have an index
    std::shared_ptr<SqliteFile> data;
  };

  static Stamp StampOf(int file);
  // The tables that statements have asked for so far, as they are in the file now. Throws
  // DatabaseError.
  Snapshot& Renewed(const std::string& shownPath);
  std::shared_ptr<SqliteFile> TablesFor(const std::string& shownPath, std::string_view sql);
  SqliteHandle Read(const std::string& shownPath, int file, const Snapshot& wanted);

  std::filesystem::path reader_;
  LongWork& work_;
  JetReaderLimits limits_;
  std::map<std::filesystem::path, Snapshot> snapshots_;
};

}  // namespace orvane
