#include "journal/tel_list.h"

#include <exception>
#include <optional>
#include <stdexcept>

#include "journal/field_access.h"
#include "journal/open_failure.h"
#include "platform/errors.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

constexpr std::size_t kMaxCompanyCharacters = 99;
constexpr std::size_t kMaxPlaceCharacters = 60;
constexpr std::size_t kMaxPersonCharacters = 99;

struct Call {
  const std::string& startText;
  const std::string& number;
  std::string& company;
  std::string& place;
  std::string& person;
  std::int32_t addressKey;
  std::int32_t personKey;
};

// A statement whose failure is not told to anyone: the journal stays as it was.
std::unique_ptr<Recordset> ExecuteQuietly(DatabaseConnection& journal, const std::string& sql) {
  try {
    return journal.Execute(sql);
  } catch (const PlatformError&) {
    return nullptr;
  }
}

// The `Ext` value for an insert code, which becomes the letter of its table. Other kinds stay as
// they are and have no value.
std::string TakeExtFromKind(std::string& kind) {
  struct Code {
    const char* kind;
    const char* table;
    const char* ext;
  };
  static constexpr Code kCodes[] = {
      {"1", "o", "-1"}, {"2", "o", "0"}, {"3", "i", "-1"}, {"4", "i", "0"}};
  for (const Code& code : kCodes) {
    if (kind != code.kind) continue;
    kind = code.table;
    return code.ext;
  }
  return {};
}

// Largest `ID` plus 1; nothing when it cannot be read. A guessed one would be another call's or, if
// small, trim this call away at once.
std::optional<std::int64_t> NextId(DatabaseConnection& journal, const std::string& table) {
  const auto rows = ExecuteQuietly(journal, "SELECT Max(ID) FROM " + table);
  if (!rows || rows->AtEnd()) return std::nullopt;
  return IntegerOf(rows->Field(0)) + 1;
}

std::string Shortened(const std::string& text, std::size_t characters) {
  return Trim(FirstCharacters(text, characters));
}

void Insert(DatabaseConnection& journal, const std::string& table, const std::string& ext,
            const Call& call) {
  std::string columns = "INSERT INTO " + table + " (ID,Ext,Zeit,Firma,Ort,Person";
  std::string tail;
  if (call.number.empty()) {
    call.company = "<Keine Nummer>";
    call.place.clear();
  } else {
    columns += ",Nr";
    tail += ",'" + call.number + "'";
    if (call.addressKey > 0) {
      columns += ",AdrID";
      tail += "," + std::to_string(call.addressKey);
    }
    if (call.person.empty()) call.person = "Unbekannt";
    if (call.personKey > 0) {
      columns += ",DUID";
      tail += "," + std::to_string(call.personKey);
    }
  }
  const std::optional<std::int64_t> id = NextId(journal, table);
  if (!id) return;
  ExecuteQuietly(journal, columns + ") VALUES (" + std::to_string(*id) + "," + ext + ",#" +
                              call.startText + "#,'" +
                              Shortened(call.company, kMaxCompanyCharacters) + "','" +
                              Shortened(call.place, kMaxPlaceCharacters) + "','" +
                              Shortened(call.person, kMaxPersonCharacters) + "'" + tail + ")");
  ExecuteQuietly(journal,
                 "DELETE FROM " + table + " WHERE ID<" + std::to_string(*id - (kJournalRows - 1)));
}

void Update(DatabaseConnection& journal, const std::string& table, const std::string& startText,
            const std::string& newTimeText, const std::string& duration) {
  ExecuteQuietly(journal, "UPDATE " + table + " Set Zeit=#" + newTimeText + "#, Dauer='" +
                              Trim(duration) + "' WHERE Zeit=#" + startText + "#");
}

// False when the journal is not open; whatever stands in the way was told to the user.
bool OpenForWriting(Prompts& prompts, ProgramState& state) {
  try {
    return ReopenTelDB(prompts, state);
  } catch (const std::exception&) {
    prompts.ShowMessage(PromptIcon::kExclamation,
                        "Telefondatenbank konnte nicht initialisiert werden.",
                        "Zugriffsfehler bei 'Perch: TelList'");
    return false;
  }
}

void SetJournalProperties(DatabaseConnection& journal, const ProgramState& state, DbMode mode) {
  journal.SetMode(mode);
  journal.SetCursorLocation(DbCursorLocation::kClient);
  journal.SetProvider("Microsoft.Jet.OLEDB.4.0");
  journal.SetProperty("Data Source", state.host.userPath + kJournalFile);
  journal.SetProperty("Jet OLEDB:Database Password", kJournalPassword);
  journal.SetProperty("Persist Security Info", "False");
}

void Reopen(DatabaseConnection& journal, ProgramState& state, JournalUse use) {
  std::string& stored = state.databases.journalConnectionString;
  if (use == JournalUse::kRead) {
    // Takes no write lock, and yet may put right what a program left behind that died writing. The
    // stored connection string stays as it is: the next call has to be written.
    SetJournalProperties(journal, state, DbMode::kUnknown);
    journal.Open();
    return;
  }
  if (stored.empty()) {
    SetJournalProperties(journal, state, DbMode::kWrite);
  } else {
    journal.SetConnectionString(stored);
  }
  journal.Open();
  stored = journal.ConnectionString();
}

}  // namespace

bool ReopenTelDB(Prompts& prompts, ProgramState& state, JournalUse use) {
  const auto& journal = state.databases.journal;
  // Who writes has a message of his own for this.
  if (!journal && use == JournalUse::kWrite) throw std::logic_error("no journal connection");
  try {
    if (!journal) throw ObjectNotSet<DatabaseError>();
    if (!journal->IsOpen()) Reopen(*journal, state, use);
    return true;
  } catch (const PlatformError& error) {
    ShowOpenFailure(prompts, error, "ReopenTelDB",
                    "Telefonliste konnte nicht initialisiert werden!");
    return false;
  }
}

void TelList(Prompts& prompts, ProgramState& state, std::string& kind, const std::string& startText,
             const std::string& newTimeText, const std::string& duration, const std::string& number,
             std::string& company, std::string& place, std::string& person, std::int32_t addressKey,
             std::int32_t personKey) {
  const bool isUpdate = kind == "o" || kind == "i";
  const std::string ext = TakeExtFromKind(kind);
  if (!OpenForWriting(prompts, state)) return;
  DatabaseConnection& journal = *state.databases.journal;
  if (isUpdate) {
    Update(journal, kind, startText, newTimeText, duration);
  } else {
    Insert(journal, kind, ext,
           Call{startText, number, company, place, person, addressKey, personKey});
  }
  journal.Close();
}

}  // namespace orvane
