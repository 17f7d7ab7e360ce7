#include "journal/journal_compaction.h"

#include <filesystem>
#include <string>
#include <system_error>

#include "app/file_text.h"
#include "journal/tel_list.h"
#include "platform/errors.h"
#include "platform/text/native_path.h"

namespace orvane {
namespace {

std::string CopyConnection(const std::string& path) {
  return "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + path +
         ";Jet OLEDB:Database Password=" + kJournalPassword;
}

bool Rename(const std::string& from, const std::string& to) {
  std::error_code error;
  std::filesystem::rename(NativePath(from), NativePath(to), error);
  return !error;
}

void Remove(const std::string& path) {
  std::error_code error;
  std::filesystem::remove(NativePath(path), error);
}

void SwapIn(const std::string& copy, const std::string& journal, const std::string& old) {
  Remove(old);
  if (!Rename(journal, old)) return;
  // Without a journal under its own name the next calls would not be written at all.
  if (!Rename(copy, journal)) Rename(old, journal);
}

}  // namespace

bool JournalIsLarge(const ProgramState& state) {
  std::error_code error;
  const auto size =
      std::filesystem::file_size(NativePath(state.host.userPath + kJournalFile), error);
  return !error && size > kJournalCompactAboveBytes;
}

void CompactTelList(DatabaseServices& databases, const ProgramState& state) {
  const std::string journal = state.host.userPath + kJournalFile;
  const std::string copy = state.host.userPath + "res\\tTelList";
  // A copy that an earlier run left behind is older than the journal and must never replace it.
  Remove(copy);
  try {
    databases.CompactDatabase(CopyConnection(journal), CopyConnection(copy));
  } catch (const PlatformError&) {
    return;
  }
  if (FileExists(copy)) SwapIn(copy, journal, state.host.userPath + "res\\TelList.OLD");
}

}  // namespace orvane
