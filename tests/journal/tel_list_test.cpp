#include "journal/tel_list.h"

#include "fakes/program_fixture.h"
#include "fakes/raw_sqlite.h"

namespace orvane {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kStart = "04/03/2024 09:05:07";

class TelListTest : public JournalFixture {
 protected:
  static NewCall Call() {
    return {CallDirection::kOutgoing,
            true,
            kStart,
            "0697654321",
            "Muster GmbH",
            "Frankfurt",
            "Hans Meier",
            17,
            0};
  }
  // The call with some of its fields changed.
  template <typename Change>
  static NewCall With(const Change& change) {
    NewCall begun = Call();
    change(begun);
    return begun;
  }
  void Insert(const NewCall& begun = Call()) { journal.Insert(state.host.userPath, begun); }
  void Complete(const std::string& start, const std::string& duration) {
    journal.Complete(state.host.userPath,
                     {CallDirection::kOutgoing, start, "04/03/2024 10:00:00", duration});
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
  Insert();
  EXPECT_EQ(databases.statements,
            (Texts{"SELECT Max(ID) FROM o",
                   "INSERT INTO o (ID,Ext,Zeit,Firma,Ort,Person,Nr,AdrID) VALUES (1,-1,#04/03/2024 "
                   "09:05:07#,'Muster GmbH','Frankfurt','Hans Meier','0697654321',17)",
                   "DELETE FROM o WHERE ID<-598"}));
  EXPECT_EQ(databases.Property("Data Source"), state.host.userPath + "res\\TelList.fdb");
  EXPECT_EQ(databases.Property("Jet OLEDB:Database Password"), "vnar");
  EXPECT_EQ(databases.Property("Mode"), "2");
  // The stored text serves the same journal only.
  databases.properties.clear();
  Insert();
  EXPECT_NE(databases.Property("ConnectionString"), std::nullopt);
  EXPECT_EQ(databases.Property("Data Source"), std::nullopt);
  journal.Insert(UserFolder(state.host, 18), Call());
  EXPECT_EQ(databases.Property("Data Source"), UserFolder(state.host, 18) + "res\\TelList.fdb");
}

TEST_F(TelListTest, StoresCallsAsTheyAre) {
  std::string umlauts;
  for (int i = 0; i < 98; ++i) umlauts += "ä";
  const std::pair<NewCall, std::string> kCases[] = {
      {Call(), "-1|Muster GmbH|Frankfurt|Hans Meier|0697654321|17|-|-|"},
      {With([](NewCall& c) {
         c.external = false;
         c.number = "217";
         c.addressKey = 0;
         c.personKey = 3;
       }),
       "0|Muster GmbH|Frankfurt|Hans Meier|217|-|3|-|"},
      {With([](NewCall& c) { c.person = ""; }),
       "-1|Muster GmbH|Frankfurt|Unbekannt|0697654321|17|-|-|"},
      {With([](NewCall& c) {
         c.number = c.person = "";
         c.personKey = 4;
       }),
       "-1|<Keine Nummer>|||-|-|-|-|"},
      {With([](NewCall& c) { c.company = "Rock''n''Roll"; }),
       "-1|Rock'n'Roll|Frankfurt|Hans Meier|0697654321|17|-|-|"},
      {With([](NewCall& c) {
         c.company = "A;--/*#1#";
         c.place = "\"[x]\"";
       }),
       "-1|A;--/*#1#|\"[x]\"|Hans Meier|0697654321|17|-|-|"},
      {With([&](NewCall& c) {
         c.company = umlauts + " xyz";
         c.place = std::string(61, 'o');
       }),
       "-1|" + umlauts + "|" + std::string(60, 'o') + "|Hans Meier|0697654321|17|-|-|"}};
  int id = 0;
  for (const auto& [begun, stored] : kCases) {
    Insert(begun);
    EXPECT_EQ(Rows(kAll).back(), std::to_string(++id) + "|" + stored);
  }
}

// A row that was not written trims nothing, however full the journal is.
TEST_F(TelListTest, ARefusedStatementLeavesTheJournalAsItWasWithoutAMessage) {
  for (int i = 0; i < 600; ++i) Insert();
  const Texts before = Rows(kAll);
  for (const char* name :
       {"O'Brien", "'", "x','y", "A'+'B", "A' OR 'B", "a'); DELETE FROM o; --"}) {
    Insert(With([&](NewCall& c) { c.company = name; }));
    Insert(With([&](NewCall& c) { c.person = name; }));
  }
  Complete(kStart, "'");
  databases.FailStatement("INSERT");
  databases.FailStatement("UPDATE");
  Insert();
  Complete(kStart, "1 Sek.");
  databases.Heal();
  databases.FailStatement("Max(ID)");
  Insert();
  EXPECT_EQ(Rows(kAll), before);
  EXPECT_TRUE(prompts.boxes.empty());
}

TEST_F(TelListTest, KeepsTheNewest600OfEachDirection) {
  Insert(With([](NewCall& c) { c.direction = CallDirection::kIncoming; }));
  for (int i = 0; i < 602; ++i) Insert();
  const Texts rows = Rows("ID");
  EXPECT_EQ(rows.size(), 600U);
  EXPECT_EQ(rows.front(), "3|");
  EXPECT_EQ(rows.back(), "602|");
  EXPECT_EQ(Rows("ID,Ext", "i"), Texts{"1|-1|"});
}

TEST_F(TelListTest, CompletesTheRowsThatBeganAtThatTime) {
  Insert();
  for (int i = 0; i < 2; ++i) {
    Insert(With([](NewCall& c) { c.startText = "04/03/2024 09:05:08"; }));
  }
  Complete("04/03/2024 09:05:09", "nie");
  Complete("04/03/2024 09:05:08", "3 Min. 5 Sek. ");
  EXPECT_EQ(Rows("ID,Dauer"), (Texts{"1|-|", "2|3 Min. 5 Sek.|", "3|3 Min. 5 Sek.|"}));
  EXPECT_EQ(Rows("ID", "o WHERE Zeit=#04/03/2024 10:00:00#"), (Texts{"2|", "3|"}));
}

// An engine that lets two programs write at once refuses the second of two equal numbers.
TEST_F(TelListTest, ANumberThatAnotherProgramTookIsCountedAnew) {
  int taken = 0;
  databases.beforeStatement = [&](std::string_view sql) {
    if (!sql.starts_with("INSERT") || ++taken > 3) return;
    throw DatabaseError(kDbErrorFailed, "doppelte Werte", -1605);
  };
  Insert();
  EXPECT_EQ(Rows("ID"), Texts{"1|"});
  EXPECT_EQ(std::ranges::count(databases.statements, "SELECT Max(ID) FROM o"), 4);
  databases.beforeStatement = [](std::string_view) {
    throw DatabaseError(kDbErrorFailed, "doppelte Werte", -1605);
  };
  Insert();
  EXPECT_EQ(Rows("ID"), Texts{"1|"});
  EXPECT_TRUE(prompts.boxes.empty());
}

TEST_F(TelListTest, TellsWhyTheJournalCannotBeWritten) {
  const std::tuple<std::int32_t, const char*, const char*, const char*> kCases[] = {
      {-2147467259, "Datei gesperrt", "Datei gesperrt", "(-2147467259) Fehler bei Anmeldung!"},
      {-2147217843, "Anmeldung für den Benutzer 'sa' fehlgeschlagen",
       "Die Server-Anmeldung wurde abgewiesen!\r\rBitte prüfen Sie die administrativen "
       "Server-Zugangsdaten!",
       "(-2147217843) Fehler bei Anmeldung!"},
      {17, "SQL Server existiert nicht oder Zugriff verweigert.",
       "SQL Server existiert nicht oder Zugriff verweigert.", "(17) Fehler bei Anmeldung!"},
      {3706, "Provider fehlt", "Telefonliste konnte nicht initialisiert werden!\r\rProvider fehlt",
       "Zugriffsfehler bei 'Perch: ReopenTelDB',  3706"}};
  const auto expectBox = [this](const char* text, const char* title) {
    EXPECT_EQ(prompts.boxes,
              (std::vector{FakePrompts::Box{PromptIcon::kExclamation, text, title}}));
    prompts.boxes.clear();
    databases.Heal();
  };
  for (const auto& [number, description, text, title] : kCases) {
    databases.FailOpen(number, description);
    Insert();
    expectBox(text, title);
  }
  // The disk fills up behind the opening.
  for (const char* statement : {"SELECT Max", "INSERT", "DELETE"}) {
    databases.FailStatement(statement, true);
    Insert();
    expectBox("Testfehler", "(-2147467259) Fehler bei Anmeldung!");
  }
  databases.FailCommit(kDbErrorFailed, "voll");
  Insert();
  expectBox("voll", "(-2147467259) Fehler bei Anmeldung!");
  databases.beforeStatement = [](std::string_view) { throw std::runtime_error("?"); };
  Insert();
  databases.beforeStatement = nullptr;
  expectBox("Telefondatenbank konnte nicht initialisiert werden.",
            "Zugriffsfehler bei 'Perch: TelList'");
  EXPECT_TRUE(Rows("ID").empty());
}

// A failure that is known while a procedure is at work waits for its end.
TEST_F(TelListTest, ABoxWaitsForTheProcedureInProgress) {
  databases.FailOpen(kDbErrorFailed, "gesperrt");
  queue.Submit([this] {
    Insert();
    Complete(kStart, "1 Sek.");
    EXPECT_TRUE(prompts.boxes.empty());
  });
  EXPECT_EQ(prompts.boxes.size(), 2U);
}

TEST_F(TelListTest, SaysOnceForEachFolderThatItsLocksDoNotReachOtherMachines) {
  folderLocks.obstacle = "nfs, nolock";
  std::filesystem::create_directories(folder / "Daten/User/18/res");
  CreateJournalFile(folder / "Daten/User/18/res/TelList.fdb");
  for (const int user : {17, 17, 18, 17}) {
    journal.Insert(UserFolder(state.host, user), Call());
  }
  EXPECT_EQ(folderLocks.asked,
            (Texts{UserFolder(state.host, 17) + "res\\", UserFolder(state.host, 18) + "res\\"}));
  ASSERT_EQ(prompts.boxes.size(), 2U);
  EXPECT_TRUE(prompts.boxes[0].text.starts_with(
      "Der Ordner sperrt Dateien nicht für andere Rechner: " + folderLocks.asked[0] +
      " (nfs, nolock)"));
  EXPECT_EQ(Rows("ID").size(), 3U) << "calls are written all the same";
}

TEST_F(TelListTest, TakesBackAJournalThatWasLeftUnderAnotherName) {
  const auto file = UserFile("TelList.fdb");
  const auto leave = [&](const char* name, int calls) {
    for (int i = 0; i < calls; ++i) Insert();
    std::filesystem::copy_file(file, UserFile(name));
  };
  leave("older", 1);
  leave("newer", 1);
  std::ofstream(UserFile("damaged")) << std::string(5000, 'x');
  const struct {
    const char* copy;
    const char* old;
    const char* rows;
  } kCases[] = {{"newer", "older", "2 "},   {"older", "newer", "2 "}, {"damaged", "older", "1 "},
                {"older", "damaged", "1 "}, {nullptr, "older", "1 "}, {"older", nullptr, "1 "}};
  for (const auto& [copy, old, rows] : kCases) {
    std::filesystem::remove(file);
    for (const auto& [from, to] : {std::pair{copy, "tTelList"}, {old, "TelList.OLD"}}) {
      std::filesystem::remove(UserFile(to));
      if (from != nullptr) std::filesystem::copy_file(UserFile(from), UserFile(to));
    }
    journal.Read(state.host.userPath, "SELECT Zeit FROM o", [](const auto&) {});
    EXPECT_EQ(RawSqlite(file).Run("SELECT count(*) FROM o"), rows);
    EXPECT_NE(supportLog.lines.back().find("wiederhergestellt"), std::string::npos);
  }
  EXPECT_TRUE(prompts.boxes.empty());
  // Nothing that could be taken back is nothing to be made up.
  std::filesystem::remove(file);
  std::filesystem::remove(UserFile("tTelList"));
  std::filesystem::remove(UserFile("TelList.OLD"));
  Insert();
  EXPECT_FALSE(std::filesystem::exists(file));
  EXPECT_EQ(prompts.boxes.size(), 1U);
}

}  // namespace
}  // namespace orvane
