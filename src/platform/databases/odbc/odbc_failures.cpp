#include "platform/databases/odbc/odbc_failures.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "platform/databases/database_errors.h"

namespace orvane {
namespace {

// The host's server's own numbers that the program's rules know.
constexpr std::int32_t kNativeNull = 515;
constexpr std::int32_t kNativeDuplicateIndex = 2601;
constexpr std::int32_t kNativeDuplicateKey = 2627;
constexpr std::int32_t kNativeJetDuplicate = -1605;
constexpr std::int32_t kNativeLogin = 18456;

// What the driver for Jet files calls a file that it cannot use.
struct FileNumber {
  std::int32_t native;
  DatabaseFailure failure;
};
constexpr FileNumber kFileNumbers[] = {
    {-1011, DatabaseFailure::kOutOfMemory},       {-1022, DatabaseFailure::kDiskError},
    {-1023, DatabaseFailure::kFileMissing},       {-1024, DatabaseFailure::kFileLocked},
    {-1028, DatabaseFailure::kFileNotRecognised}, {-1032, DatabaseFailure::kFileLocked},
    {-1206, DatabaseFailure::kFileDamaged},       {-1302, DatabaseFailure::kFileLocked},
    {-1808, DatabaseFailure::kDiskFull},          {-1809, DatabaseFailure::kFileWriteProtected},
    {-1811, DatabaseFailure::kFileMissing},       {-1905, DatabaseFailure::kPasswordRefused}};

bool IsIn(const std::string& text, const char* part) {
  return text.find(part) != std::string::npos;
}

bool IsOneOf(const std::string& state, std::initializer_list<const char*> states) {
  return std::any_of(states.begin(), states.end(),
                     [&state](const char* other) { return state.starts_with(other); });
}

// Some drivers tell a refused login from a missing server by their words alone.
bool IsLoginRefusal(const OdbcDiagnosis& diagnosis) {
  return diagnosis.state.starts_with("28") || diagnosis.native == kNativeLogin ||
         IsIn(diagnosis.text, "password authentication failed") ||
         IsIn(diagnosis.text, "no password supplied") || IsIn(diagnosis.text, "Login failed");
}

bool IsDriverMissing(const OdbcDiagnosis& diagnosis) {
  return diagnosis.state.starts_with("IM") || IsIn(diagnosis.text, "Can't open lib");
}

const OdbcDiagnosis* First(const std::vector<OdbcDiagnosis>& diagnoses,
                           bool (*matches)(const OdbcDiagnosis&)) {
  const auto found = std::find_if(diagnoses.begin(), diagnoses.end(), matches);
  return found == diagnoses.end() ? nullptr : &*found;
}

std::optional<DatabaseFailure> FileFailureOf(const std::vector<OdbcDiagnosis>& diagnoses) {
  for (const OdbcDiagnosis& diagnosis : diagnoses) {
    const auto* const found = std::find_if(
        std::begin(kFileNumbers), std::end(kFileNumbers),
        [&diagnosis](const FileNumber& entry) { return entry.native == diagnosis.native; });
    if (found != std::end(kFileNumbers)) return found->failure;
  }
  return std::nullopt;
}

bool IsDuplicateNumber(std::int32_t native) {
  return native == kNativeDuplicateIndex || native == kNativeDuplicateKey ||
         native == kNativeJetDuplicate;
}

DatabaseFailure StatementFailureOf(const OdbcDiagnosis& diagnosis) {
  const std::string& state = diagnosis.state;
  if (IsOneOf(state, {"42", "37", "S0", "07"})) return DatabaseFailure::kSyntax;
  if (diagnosis.native == kNativeNull || state == "23502") return DatabaseFailure::kNullField;
  if (IsDuplicateNumber(diagnosis.native) || state == "23505") return DatabaseFailure::kDuplicate;
  if (IsOneOf(state, {"23"})) return DatabaseFailure::kRule;
  // The limit that the driver was given, or somebody's wish that the statement ends.
  if (IsOneOf(state, {"HYT", "HY008", "S1T00", "S1008", "57014"})) {
    return DatabaseFailure::kStatementTooLong;
  }
  if (IsOneOf(state, {"08", "57"})) return DatabaseFailure::kServerLost;
  return DatabaseFailure::kOther;
}

DatabaseError OdbcConnectFailure(const std::vector<OdbcDiagnosis>& diagnoses,
                                 const OdbcSubject& subject) {
  const OdbcDiagnosis* const login = First(diagnoses, IsLoginRefusal);
  if (login == nullptr && First(diagnoses, IsDriverMissing) != nullptr) {
    return ErrorOf(DatabaseFailure::kDriverMissing, subject.database);
  }
  const std::int32_t native = diagnoses.empty() ? 0 : diagnoses.front().native;
  if (subject.isFile) {
    const auto refusal = login != nullptr
                             ? DatabaseFailure::kPasswordRefused
                             : FileFailureOf(diagnoses).value_or(DatabaseFailure::kDiskError);
    return ErrorOf(refusal, subject.database, login != nullptr ? login->native : native);
  }
  if (login != nullptr) return ErrorOf(DatabaseFailure::kLoginRefused, subject.user, login->native);
  return ErrorOf(DatabaseFailure::kServerNotFound, {}, native);
}

DatabaseError OdbcStatementFailure(const std::vector<OdbcDiagnosis>& diagnoses,
                                   const OdbcSubject& subject) {
  const OdbcDiagnosis first = diagnoses.empty() ? OdbcDiagnosis{} : diagnoses.front();
  if (subject.isFile) {
    if (const auto failure = FileFailureOf(diagnoses)) {
      return ErrorOf(*failure, subject.database, first.native);
    }
  }
  const DatabaseFailure failure = StatementFailureOf(first);
  // What another server than the host's calls it is no number that anyone knows.
  const bool known = first.native == kNativeNull || IsDuplicateNumber(first.native);
  const bool looked =
      failure == DatabaseFailure::kNullField || failure == DatabaseFailure::kDuplicate;
  return ErrorOf(failure, first.text, looked && !known ? 0 : first.native);
}

std::string TextOf(const std::vector<OdbcDiagnosis>& diagnoses) {
  return diagnoses.empty() ? std::string() : diagnoses.front().text;
}

}  // namespace

DatabaseError OdbcConnectError(const std::vector<OdbcDiagnosis>& diagnoses,
                               const OdbcSubject& subject) {
  return OdbcConnectFailure(diagnoses, subject).Saying(TextOf(diagnoses));
}

DatabaseError OdbcStatementError(const std::vector<OdbcDiagnosis>& diagnoses,
                                 const OdbcSubject& subject) {
  return OdbcStatementFailure(diagnoses, subject).Saying(TextOf(diagnoses));
}

}  // namespace orvane
