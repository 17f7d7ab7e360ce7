#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/errors.h"

namespace orvane {

// What can go wrong in a database, whatever engine keeps it.
enum class DatabaseFailure {
  kPasswordRefused,   // of a file
  kLoginRefused,      // by the server, for the user that `subject` names
  kServerNotFound,    // there is none, or it refuses to talk, or it does not answer
  kServerLost,        // it went away in the middle of a statement
  kStatementTooLong,  // the server takes too long for a statement
  kDriverMissing,     // for what `subject` names
  kReaderMissing,     // the program that reads Jet files; `subject` is its path
  kFileMissing,
  kFileUnreadable,
  kFileNotRecognised,
  kFileExists,
  kFileLocked,
  kFileDamaged,
  kFileWriteProtected,
  kFileTooLarge,
  kJetReadOnly,
  kDiskFull,
  kDiskError,
  kOutOfMemory,
  kValueTooLarge,
  kSyntax,     // the statement, or a name in it; `subject` says what
  kDuplicate,  // a key that is there already
  kNullField,  // a field that must not be null
  kRule,       // any other rule of a table
  kOther       // `subject` is the file or the engine's own words
};

// The number, the German description and what is in the way, as every engine reports it. `subject`
// is the file as the program composed its path, or what the failure's comment says. `nativeNumber`
// is the engine's own; without one it is the number that the program's rules know, or 0.
DatabaseError ErrorOf(DatabaseFailure failure, std::string_view subject = {},
                      std::int32_t nativeNumber = 0);

// The failures of connections and recordsets, which no database is asked for; each throws
// DatabaseError.
[[noreturn]] void ThrowObjectOpen();
[[noreturn]] void ThrowObjectClosed();
[[noreturn]] void ThrowNoCurrentRow();
[[noreturn]] void ThrowNoSuchField();
[[noreturn]] void ThrowProviderNotFound();

}  // namespace orvane
