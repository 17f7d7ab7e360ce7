#include "journal/tel_list.h"

#include "fakes/program_fixture.h"
#include "journal/journal_compaction.h"

namespace orvane {
namespace {

using Texts = std::vector<std::string>;

class TelListTest : public JournalFixture {
 protected:
  struct Row {
    std::string kind = "1";
    std::string start = "04/03/2024 09:05:07";
    std::string number = "0697654321", company = "Muster GmbH", place = "Frankfurt";
    std::string person = "Hans Meier", connected = "0", duration = "";
    std::int32_t addressKey = 17, personKey = 0;
  };
  // Gives the kind as the journal leaves it.
  std::string Insert(Row row) {
    TelList(prompts, state, row.kind, row.start, row.connected, row.duration, row.number,
            row.company, row.place, row.person, row.addressKey, row.personKey);
    return row.kind;
  }
  void Complete(const std::string& start, const std::string& duration) {
    Insert({.kind = "o", .start = start, .connected = "04/03/2024 10:00:00", .duration = duration});
  }

  // Those fields of all rows in the order of their numbers, each followed by "|", null as "-".
  Texts Rows(const std::string& fields, const std::string& rest = "o") {
    const auto connection = sqlite.NewConnection();
    connection->SetConnectionString(
        "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + state.host.userPath + kJournalFile);
    connection->Open();
    const auto rows = connection->Execute("SELECT " + fields + " FROM " + rest + " ORDER BY ID");
    Texts result;
    for (; !rows->AtEnd(); rows->MoveNext()) {
      std::string& text = result.emplace_back();
      for (int i = 0; i <= std::count(fields.begin(), fields.end(), ','); ++i) {
        const DbValue value = rows->Field(i);
        const auto* whole = std::get_if<std::int64_t>(&value);
        const auto* words = std::get_if<std::string>(&value);
        text += (words ? *words : whole ? std::to_string(*whole) : "-") + "|";
      }
    }
    return result;
  }
};

constexpr const char* kAll = "ID,Ext,Firma,Ort,Person,Nr,AdrID,DUID,Dauer";

TEST_F(TelListTest, ConcatenatesTheStatements) {
  Insert({});
  EXPECT_EQ(databases.statements,
            (Texts{"SELECT Max(ID) FROM o",
                   "INSERT INTO o (ID,Ext,Zeit,Firma,Ort,Person,Nr,AdrID) VALUES (1,-1,#04/03/2024 "
                   "09:05:07#,'Muster GmbH','Frankfurt','Hans Meier','0697654321',17)",
                   "DELETE FROM o WHERE ID<-598"}));
  EXPECT_EQ(databases.Property("Data Source"), state.host.userPath + "res\\TelList.fdb");
  EXPECT_EQ(databases.Property("Jet OLEDB:Database Password"), "vnar");
  EXPECT_EQ(databases.Property("Mode"), "2");
  EXPECT_FALSE(state.databases.journal->IsOpen());
  Insert({});
  EXPECT_EQ(databases.Property("ConnectionString"), state.databases.journalConnectionString);
}

TEST_F(TelListTest, StoresCallsAsTheyAre) {
  std::string umlauts;
  for (int i = 0; i < 98; ++i) umlauts += "ä";
  const std::pair<Row, std::string> kCases[] = {
      {{}, "-1|Muster GmbH|Frankfurt|Hans Meier|0697654321|17|-|-|"},
      {{.kind = "2", .number = "217", .addressKey = 0, .personKey = 3},
       "0|Muster GmbH|Frankfurt|Hans Meier|217|-|3|-|"},
      {{.person = ""}, "-1|Muster GmbH|Frankfurt|Unbekannt|0697654321|17|-|-|"},
      {{.number = "", .person = "", .personKey = 4}, "-1|<Keine Nummer>|||-|-|-|-|"},
      {{.company = "Rock''n''Roll"}, "-1|Rock'n'Roll|Frankfurt|Hans Meier|0697654321|17|-|-|"},
      {{.company = "A;--/*#1#", .place = "\"[x]\""},
       "-1|A;--/*#1#|\"[x]\"|Hans Meier|0697654321|17|-|-|"},
      {{.company = umlauts + " xyz", .place = std::string(61, 'o')},
       "-1|" + umlauts + "|" + std::string(60, 'o') + "|Hans Meier|0697654321|17|-|-|"}};
  int id = 0;
  for (const auto& [row, stored] : kCases) {
    Insert(row);
    EXPECT_EQ(Rows(kAll).back(), std::to_string(++id) + "|" + stored);
  }
}

TEST_F(TelListTest, AnApostropheKeepsTheCallOutWithoutAMessage) {
  Insert({});
  for (const char* name :
       {"O'Brien", "'", "x','y", "A'+'B", "A' OR 'B", "a'); DELETE FROM o; --"}) {
    Insert({.company = name});
    Insert({.person = name});
    EXPECT_EQ(Rows("ID").size(), 1U) << name;
  }
  EXPECT_TRUE(prompts.boxes.empty());
}

TEST_F(TelListTest, KeepsTheNewest600OfEachDirection) {
  Insert({.kind = "3"});
  for (int i = 0; i < 602; ++i) Insert({});
  const Texts rows = Rows("ID");
  EXPECT_EQ(rows.size(), 600U);
  EXPECT_EQ(rows.front(), "3|");
  EXPECT_EQ(rows.back(), "602|");
  EXPECT_EQ(Rows("ID,Ext", "i"), Texts{"1|-1|"});
  // When the largest number cannot be read, the journal stays as it was.
  databases.FailStatement("Max(ID)");
  Insert({});
  EXPECT_EQ(Rows("ID"), rows);
}

TEST_F(TelListTest, CompletesTheRowsThatBeganAtThatTime) {
  Insert({});
  for (int i = 0; i < 2; ++i) Insert({.start = "04/03/2024 09:05:08"});
  Complete("04/03/2024 09:05:09", "nie");
  Complete("04/03/2024 09:05:08", "3 Min. 5 Sek. ");
  EXPECT_EQ(Rows("ID,Dauer"), (Texts{"1|-|", "2|3 Min. 5 Sek.|", "3|3 Min. 5 Sek.|"}));
  EXPECT_EQ(Rows("ID", "o WHERE Zeit=#04/03/2024 10:00:00#"), (Texts{"2|", "3|"}));
}

TEST_F(TelListTest, OtherKindsAndFailingStatementsStaySilent) {
  EXPECT_EQ(Insert({.kind = "9"}), "9");
  databases.FailStatement("INSERT");
  EXPECT_EQ(Insert({}), "o");
  EXPECT_TRUE(prompts.boxes.empty());
  EXPECT_TRUE(Rows("ID").empty());
  EXPECT_FALSE(state.databases.journal->IsOpen());
}

TEST_F(TelListTest, TellsWhyTheJournalCannotBeOpened) {
  const std::tuple<std::int32_t, const char*, const char*, const char*> kCases[] = {
      {-2147467259, "Datei gesperrt", "Datei gesperrt", "(-2147467259) Fehler bei Anmeldung!"},
      {-2147217843, "Anmeldung für den Benutzer 'sa' fehlgeschlagen",
       "Die Server-Anmeldung wurde abgewiesen!\r\rBitte prüfen Sie die administrativen "
       "Server-Zugangsdaten!",
       "(-2147217843) Fehler bei Anmeldung!"},
      {17, "SQL Server existiert nicht oder Zugriff verweigert.",
       "SQL Server existiert nicht oder Zugriff verweigert.", "(17) Fehler bei Anmeldung!"},
      {3706, "Provider fehlt", "Telefonliste konnte nicht initialisiert werden!\r\rProvider fehlt",
       "Zugriffsfehler bei 'Perch: ReopenTelDB',  3706"},
      {0, "", "Telefondatenbank konnte nicht initialisiert werden.",
       "Zugriffsfehler bei 'Perch: TelList'"}};
  for (const auto& [number, description, text, title] : kCases) {
    prompts.boxes.clear();
    databases.Heal();
    databases.FailOpen(number, description);
    if (number == 0) state.databases.journal.reset();
    Insert({});
    EXPECT_EQ(prompts.boxes,
              (std::vector{FakePrompts::Box{PromptIcon::kExclamation, text, title}}));
  }
}

TEST_F(TelListTest, CompactionSwapsTheFilesOrLeavesEverything) {
  Insert({});
  WriteFile(UserFile("tTelList"), "left behind");
  databases.FailCompact(kDbErrorFailed, "voll");
  CompactTelList(databases, state);
  EXPECT_EQ(Rows("ID").size(), 1U);
  EXPECT_FALSE(std::filesystem::exists(UserFile("TelList.OLD")));

  databases.Heal();
  WriteFile(UserFile("TelList.OLD"), "older");
  CompactTelList(databases, state);
  EXPECT_EQ(Rows("ID").size(), 1U);
  EXPECT_GT(std::filesystem::file_size(UserFile("TelList.OLD")), 100U);
  EXPECT_FALSE(std::filesystem::exists(UserFile("tTelList")));
}

}  // namespace
}  // namespace orvane
