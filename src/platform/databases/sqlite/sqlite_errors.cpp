#include "platform/databases/sqlite/sqlite_errors.h"

#include <sqlite3.h>

#include "platform/databases/database_errors.h"

namespace orvane {
namespace {

// What a result code of an open file means. `extended` is the code with its details.
DatabaseFailure FailureOfCode(int extended) {
  switch (extended) {
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_ROWID:
      return DatabaseFailure::kDuplicate;
    case SQLITE_CONSTRAINT_NOTNULL:
      return DatabaseFailure::kNullField;
    default:
      break;
  }
  switch (extended & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PROTOCOL:
      return DatabaseFailure::kFileLocked;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return DatabaseFailure::kFileDamaged;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_CANTOPEN:
      return DatabaseFailure::kFileWriteProtected;
    case SQLITE_FULL:
      return DatabaseFailure::kDiskFull;
    case SQLITE_IOERR:
      return DatabaseFailure::kDiskError;
    case SQLITE_NOMEM:
      return DatabaseFailure::kOutOfMemory;
    case SQLITE_TOOBIG:
      return DatabaseFailure::kValueTooLarge;
    case SQLITE_CONSTRAINT:
    case SQLITE_MISMATCH:
      return DatabaseFailure::kRule;
    default:
      return DatabaseFailure::kOther;
  }
}

}  // namespace

// The codes that the program's rules know are not covered up by the engine's own.
DatabaseError SqliteError(int extended, const std::string& shownPath) {
  const DatabaseFailure failure = FailureOfCode(extended);
  const bool known =
      failure == DatabaseFailure::kDuplicate || failure == DatabaseFailure::kNullField;
  return ErrorOf(failure, shownPath, known ? 0 : extended);
}

}  // namespace orvane
