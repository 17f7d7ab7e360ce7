#include "journal/tel_list.h"

#include <gtest/gtest.h>

#include "fakes/program_fixture.h"
#include "journal/journal_compaction.h"
#include "journal_schema.h"

namespace orvane {
namespace {

class TelListTest : public ProgramFixture {
 protected:
  TelListTest() {
    CreateJournalFile(UserFile("TelList.fdb"));
    state.databases.journal = databases.NewConnection();
  }

  struct Row {
    std::string kind = "1";
    std::string start = "04/03/2024 09:05:07";
    std::string number = "0697654321";
    std::string company = "Muster GmbH";
    std::string place = "Frankfurt";
    std::string person = "Hans Meier";
    std::int32_t addressKey = 17;
    std::int32_t personKey = 0;
  };

  Row Insert(Row row) {
    TelList(services, state, row.kind, row.start, "0", "", row.number, row.company, row.place,
            row.person, row.addressKey, row.personKey);
    return row;
  }
  void Complete(const std::string& start, const std::string& connected,
                const std::string& duration) {
    Row row{.kind = "o"};
    TelList(services, state, row.kind, start, connected, duration, row.number, row.company,
            row.place, row.person, 0, 0);
  }

  // All rows as text, each field followed by "|", null as "-".
  std::vector<std::string> Rows(const std::string& sql) {
    const auto connection = sqlite.NewConnection();
    connection->SetConnectionString(
        "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + state.host.userPath + kJournalFile);
    connection->Open();
    const auto rows = connection->Execute(sql);
    std::vector<std::string> result;
    for (; !rows->AtEnd(); rows->MoveNext()) result.push_back(RowText(*rows));
    return result;
  }
  static std::string RowText(const Recordset& rows) {
    std::string text;
    try {
      for (int i = 0;; ++i) text += FieldText(rows.Field(i)) + "|";
    } catch (const DatabaseError&) {
      return text;
    }
  }
  static std::string FieldText(const DbValue& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return std::to_string(*whole);
    if (const auto* real = std::get_if<double>(&value)) return std::to_string(*real);
    return "-";
  }
};

constexpr const char* kAll =
    "SELECT ID,Ext,Firma,Ort,Person,Nr,AdrID,DUID,Dauer FROM o ORDER BY ID";

TEST_F(TelListTest, ConcatenatesTheStatements) {
  Insert({});
  ASSERT_EQ(databases.statements.size(), 3U);
  EXPECT_EQ(databases.statements[0], "SELECT Max(ID) FROM o");
  EXPECT_EQ(databases.statements[1],
            "INSERT INTO o (ID,Ext,Zeit,Firma,Ort,Person,Nr,AdrID) VALUES (1,-1,#04/03/2024 "
            "09:05:07#,'Muster GmbH','Frankfurt','Hans Meier','0697654321',17)");
  EXPECT_EQ(databases.statements[2], "DELETE FROM o WHERE ID<-598");
  EXPECT_EQ(databases.Property("Data Source"), state.host.userPath + "res\\TelList.fdb");
  EXPECT_EQ(databases.Property("Jet OLEDB:Database Password"), "vnar");
  EXPECT_EQ(databases.Property("Mode"), "2");
  EXPECT_FALSE(state.databases.journal->IsOpen());
  Insert({});
  EXPECT_EQ(databases.Property("ConnectionString"), state.databases.journalConnectionString);
}

TEST_F(TelListTest, StoresCallsAsTheyAre) {
  const struct {
    const char* what;
    Row row;
    const char* stored;
  } kCases[] = {
      {"external", {}, "-1|Muster GmbH|Frankfurt|Hans Meier|0697654321|17|-|-|"},
      {"internal with person key",
       {.kind = "2", .number = "217", .addressKey = 0, .personKey = 3},
       "0|Muster GmbH|Frankfurt|Hans Meier|217|-|3|-|"},
      {"person unknown", {.person = ""}, "-1|Muster GmbH|Frankfurt|Unbekannt|0697654321|17|-|-|"},
      {"no number", {.number = "", .person = "", .personKey = 4}, "-1|<Keine Nummer>|||-|-|-|-|"},
      {"doubled apostrophe",
       {.company = "Rock''n''Roll"},
       "-1|Rock'n'Roll|Frankfurt|Hans Meier|0697654321|17|-|-|"},
      {"statement signs in a text",
       {.company = "A;--/*#1#", .place = "\"[x]\""},
       "-1|A;--/*#1#|\"[x]\"|Hans Meier|0697654321|17|-|-|"},
      {"umlauts",
       {.company = "Müßig & Söhne"},
       "-1|Müßig & Söhne|Frankfurt|Hans Meier|0697654321|17|-|-|"},
  };
  int id = 0;
  for (const auto& test : kCases) {
    SCOPED_TRACE(test.what);
    Insert(test.row);
    ASSERT_EQ(Rows(kAll).size(), static_cast<std::size_t>(id + 1));
    EXPECT_EQ(Rows(kAll).back(), std::to_string(++id) + "|" + test.stored);
  }
  std::string longName;
  for (int i = 0; i < 98; ++i) longName += "ä";
  Insert({.company = longName + " xyz", .place = std::string(61, 'o')});
  EXPECT_EQ(Rows(kAll).back(), std::to_string(++id) + "|-1|" + longName + "|" +
                                   std::string(60, 'o') + "|Hans Meier|0697654321|17|-|-|");
}

TEST_F(TelListTest, AnApostropheKeepsTheCallOutWithoutAMessage) {
  Insert({});
  for (const char* name :
       {"O'Brien", "'", "x','y", "A'+'B", "A' OR 'B", "a'); DELETE FROM o; --"}) {
    SCOPED_TRACE(name);
    Insert({.company = name});
    Insert({.person = name});
  }
  EXPECT_EQ(Rows(kAll).size(), 1U);
  EXPECT_TRUE(prompts.boxes.empty());
}

TEST_F(TelListTest, KeepsTheNewest600OfEachDirection) {
  Insert({.kind = "3"});
  for (int i = 0; i < 602; ++i) Insert({});
  const auto rows = Rows("SELECT ID FROM o ORDER BY ID");
  EXPECT_EQ(rows.size(), 600U);
  EXPECT_EQ(rows.front(), "3|");
  EXPECT_EQ(rows.back(), "602|");
  EXPECT_EQ(Rows("SELECT ID,Ext FROM i"), std::vector<std::string>{"1|-1|"});
  // When the largest number cannot be read, nothing must be trimmed away.
  databases.FailStatement("Max(ID)");
  Insert({});
  EXPECT_EQ(Rows("SELECT ID FROM o WHERE ID>0").size(), 600U);
}

TEST_F(TelListTest, CompletesTheRowsThatBeganAtThatTime) {
  Insert({});
  Insert({.start = "04/03/2024 09:05:08"});
  Insert({.start = "04/03/2024 09:05:08"});
  Complete("04/03/2024 09:05:09", "04/03/2024 10:00:00", "nie");
  EXPECT_TRUE(Rows("SELECT ID FROM o WHERE Dauer='nie'").empty());
  Complete("04/03/2024 09:05:08", "04/03/2024 10:00:00", "3 Min. 5 Sek. ");
  EXPECT_EQ(Rows("SELECT ID,Dauer FROM o WHERE Zeit=#04/03/2024 10:00:00# ORDER BY ID"),
            (std::vector<std::string>{"2|3 Min. 5 Sek.|", "3|3 Min. 5 Sek.|"}));
}

TEST_F(TelListTest, OtherKindsAndFailingStatementsStaySilent) {
  EXPECT_EQ(Insert({.kind = "9"}).kind, "9");
  databases.FailStatement("INSERT");
  EXPECT_EQ(Insert({.kind = "1"}).kind, "o");
  EXPECT_TRUE(prompts.boxes.empty());
  EXPECT_TRUE(Rows(kAll).empty());
  EXPECT_FALSE(state.databases.journal->IsOpen());
}

TEST_F(TelListTest, TellsWhyTheJournalCannotBeOpened) {
  const struct {
    std::int32_t number;
    const char *description, *text, *title;
  } kCases[] = {
      {-2147467259, "Datei gesperrt", "Datei gesperrt", "(-2147467259) Fehler bei Anmeldung!"},
      {-2147217843, "Anmeldung für den Benutzer 'sa' fehlgeschlagen",
       "Die Server-Anmeldung wurde abgewiesen!\r\rBitte prüfen Sie die administrativen "
       "Server-Zugangsdaten!",
       "(-2147217843) Fehler bei Anmeldung!"},
      {17, "SQL Server existiert nicht oder Zugriff verweigert.",
       "SQL Server existiert nicht oder Zugriff verweigert.", "(17) Fehler bei Anmeldung!"},
      {3706, "Provider fehlt", "Telefonliste konnte nicht initialisiert werden!\r\rProvider fehlt",
       "Zugriffsfehler bei 'Perch: ReopenTelDB',  3706"},
  };
  for (const auto& test : kCases) {
    SCOPED_TRACE(test.title);
    prompts.boxes.clear();
    databases.Heal();
    databases.FailOpen(test.number, test.description);
    Insert({});
    ASSERT_EQ(prompts.boxes.size(), 1U);
    EXPECT_EQ(prompts.boxes[0],
              (FakePrompts::Box{PromptIcon::kExclamation, test.text, test.title}));
  }
  state.databases.journal.reset();
  Insert({});
  EXPECT_EQ(prompts.boxes.back(),
            (FakePrompts::Box{PromptIcon::kExclamation,
                              "Telefondatenbank konnte nicht initialisiert werden.",
                              "Zugriffsfehler bei 'Perch: TelList'"}));
}

TEST_F(TelListTest, CompactionSwapsTheFilesOrLeavesEverything) {
  Insert({});
  WriteFile(UserFile("tTelList"), "left behind");
  databases.FailCompact(kDbErrorFailed, "voll");
  CompactTelList(services, state);
  EXPECT_EQ(Rows(kAll).size(), 1U);
  EXPECT_FALSE(std::filesystem::exists(UserFile("TelList.OLD")));

  databases.Heal();
  WriteFile(UserFile("TelList.OLD"), "older");
  CompactTelList(services, state);
  EXPECT_EQ(Rows(kAll).size(), 1U);
  EXPECT_GT(std::filesystem::file_size(UserFile("TelList.OLD")), 100U);
  EXPECT_FALSE(std::filesystem::exists(UserFile("tTelList")));

  const struct {
    std::uintmax_t bytes;
    bool large;
  } kSizes[] = {{9999999, false}, {10000000, true}};
  for (const auto& size : kSizes) {
    std::filesystem::resize_file(UserFile("TelList.fdb"), size.bytes);
    EXPECT_EQ(JournalIsLarge(state), size.large);
  }
}

}  // namespace
}  // namespace orvane
