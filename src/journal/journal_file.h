#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "journal/journal_entry.h"
#include "platform/database.h"
#include "platform/errors.h"
#include "platform/folder_locks.h"
#include "platform/support_log.h"

namespace orvane {

// The journal's file under the user's folder.
inline constexpr const char* kJournalFile = "res\\TelList.fdb";

// A journal file of more bytes is compacted after the call.
inline constexpr std::uintmax_t kJournalCompactAboveBytes = 9999999;

// Names the journal file at `path` to a closed connection.
void SetJournalProperties(DatabaseConnection& connection, const std::string& path, DbMode mode);

// The journals of users, one at a time: opens the file, runs the statements, closes it again. Works
// on one thread. A folder is that of HostEnvironment::userPath.
//
// What keeps the file from being opened, or is no fault of a statement (another program's lock, a
// full disk), is thrown as PlatformError. A statement that is refused is nobody's business: the
// journal stays exactly as it was.
class JournalFile {
 public:
  // Told what the user should know though the journal is written all the same.
  using Warn = std::function<void(const PlatformError&)>;

  // All outlive the file.
  JournalFile(DatabaseServices& databases, FolderLocks& locks, SupportLog& log, Warn warn);

  void Insert(const std::string& userPath, const NewCall& call);
  void Complete(const std::string& userPath, const EndedCall& call);
  // The rows of a query for `Zeit`, `Ext`, `Nr`, `Firma`, `Ort` and `Person`; also of a journal
  // that cannot be written to.
  std::vector<JournalCall> Read(const std::string& userPath, const std::string& query);

  std::vector<JournalDuration> ReadDurations(const std::string& userPath, CallDirection direction);

  // Compacts a file that has grown too large and keeps the previous one as "TelList.OLD"; throws
  // nothing.
  void CompactTelList(const std::string& userPath);

  // Goes on with a fresh connection.
  void Renew();

 private:
  enum class Use { kWrite, kRead };
  enum class Inserted { kDone, kNumberTaken };

  void ReopenTelDB(const std::string& userPath, Use use);
  void CheckLocks(const std::string& userPath);
  Inserted TryInsert(const NewCall& call);
  std::unique_ptr<Recordset> ExecuteQuietly(const std::string& sql);

  DatabaseServices& databases_;
  FolderLocks& locks_;
  SupportLog& log_;
  Warn warn_;
  std::unique_ptr<DatabaseConnection> connection_;
  // What the provider reported after the first successful open for writing, and of whose journal.
  std::string connectionString_;
  std::string openedFor_;
  // Folders whose locks were looked at.
  std::set<std::string> checked_;
};

}  // namespace orvane
