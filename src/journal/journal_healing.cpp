#include "journal/journal_healing.h"

#include <filesystem>
#include <optional>
#include <system_error>

#include "journal/field_access.h"
#include "journal/journal_file.h"
#include "journal/journal_statements.h"
#include "platform/errors.h"
#include "platform/text/native_path.h"

namespace orvane {
namespace {

// The compact copy that was to become the journal, and the journal that was put aside for it.
constexpr const char* kLeftBehind[] = {"res\\tTelList", "res\\TelList.OLD"};

bool Exists(const std::string& path) {
  std::error_code error;
  return std::filesystem::exists(NativePath(path), error);
}

// The numbers of the newest calls; nothing when the file is no whole journal.
std::optional<std::int64_t> NewestCalls(const std::string& path, DatabaseServices& databases) {
  try {
    const auto connection = databases.NewConnection();
    SetJournalProperties(*connection, path, DbMode::kRead);
    connection->Open();
    std::int64_t newest = 0;
    for (const CallDirection direction : {CallDirection::kOutgoing, CallDirection::kIncoming}) {
      newest += IntegerOf(connection->Execute(MaxIdStatement(direction))->Field(0));
    }
    return newest;
  } catch (const PlatformError&) {
    return std::nullopt;
  }
}

}  // namespace

void HealJournal(const std::string& userPath, DatabaseServices& databases, SupportLog& log) {
  const std::string journal = userPath + kJournalFile;
  if (Exists(journal)) return;
  std::optional<std::int64_t> newest;
  std::string chosen;
  for (const char* name : kLeftBehind) {
    const std::string path = userPath + name;
    if (!Exists(path)) continue;
    const auto calls = NewestCalls(path, databases);
    if (!calls || (newest && *calls <= *newest)) continue;
    newest = calls;
    chosen = path;
  }
  if (chosen.empty()) return;
  std::error_code error;
  std::filesystem::rename(NativePath(chosen), NativePath(journal), error);
  log.Tell(LogTopic::kDatabase, {"TelList.fdb fehlte und wurde aus ",
                                 {LogPart::Kind::kPath, chosen},
                                 error ? " nicht wiederhergestellt" : " wiederhergestellt"});
}

}  // namespace orvane
