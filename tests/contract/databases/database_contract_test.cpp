// What every database connection owes the logic, whatever keeps the data.

#include "contract/databases/contact_engine.h"
#include "fakes/program_fixture.h"
#include "fakes/recording_log.h"
#include "journal/contact_lookup.h"
#include "platform/support/logged_databases.h"

namespace orvane {
namespace {

enum class Way { kStraight, kFaulty, kLogged };

// An empty journal, reached straight or through others' services.
class DatabaseContract : public testing::TestWithParam<Way> {
 protected:
  DatabaseContract() { CreateJournalFile(folder_ / "TelList.fdb"); }
  std::unique_ptr<DatabaseConnection> Select(const char* file = "telList.fdb") {
    auto connection = services_.NewConnection();
    connection->SetCursorLocation(DbCursorLocation::kClient);
    connection->SetMode(DbMode::kWrite);
    connection->SetProvider("Microsoft.Jet.OLEDB.4.0");
    connection->SetProperty("Data Source", folder_.Path().string() + "\\" + file);
    connection->SetProperty("Jet OLEDB:Database Password", "vnar");
    return connection;
  }
  std::unique_ptr<DatabaseConnection> Opened() {
    auto connection = Select();
    connection->Open();
    return connection;
  }

  TemporaryFolder folder_;
  SqliteServices sqlite_;
  FaultyDatabase faulty_{sqlite_};
  RecordingLog log_;
  LoggedDatabases logged_{faulty_, log_};
  DatabaseServices& services_ = Services();

 private:
  DatabaseServices& Services() {
    if (GetParam() == Way::kStraight) return sqlite_;
    if (GetParam() == Way::kFaulty) return faulty_;
    return logged_;
  }
};

void ExpectError(std::int32_t number, const std::function<void()>& action, bool ofStorage = false) {
  try {
    action();
    ADD_FAILURE() << "no error, expected " << number;
  } catch (const DatabaseError& error) {
    EXPECT_EQ(error.Number(), number) << error.Description();
    EXPECT_EQ(error.OfStorage(), ofStorage) << error.Description();
    EXPECT_FALSE(error.Description().empty());
  }
}

const DbValue kNull;
DbValue Text(const char* text) {
  return std::string(text);
}
DbValue Whole(std::int64_t number) {
  return number;
}
DbValue First(DatabaseConnection& connection, const std::string& sql) {
  return connection.Execute(sql)->Field(0);
}

TEST_P(DatabaseContract, KeepsAndFindsCalls) {
  auto journal = Opened();
  EXPECT_EQ(First(*journal, "SELECT Max(ID) FROM o"), kNull);
  journal->Execute(
      "INSERT INTO o (ID,Ext,Zeit,Firma,Ort,Person,Nr,AdrID) VALUES (42,-1,#04/03/2024 09:05:07#,"
      "'Müller & Söhne; GmbH','','Unbekannt','0697654321',17)");
  EXPECT_EQ(First(*journal, "SELECT Max(ID) FROM o"), Whole(42));

  const auto rows = journal->Execute(
      "SELECT Zeit,Firma,Ort,Nr,AdrID,DUID,Ext FROM o WHERE Zeit=#04/03/2024 09:05:07#");
  journal.reset();  // rows outlive the connection
  EXPECT_EQ(rows->Field("zeit"), DbValue(45385 + 32707 / 86400.0));
  EXPECT_EQ(rows->Field("FIRMA"), Text("Müller & Söhne; GmbH"));
  EXPECT_EQ(rows->Field("Ort"), Text(""));
  EXPECT_EQ(rows->Field(3), Text("0697654321"));
  EXPECT_EQ(rows->Field("AdrID"), Whole(17));
  EXPECT_EQ(rows->Field("DUID"), kNull);
  EXPECT_EQ(rows->Field("Ext"), Whole(-1));
  ExpectError(kDbErrorNoSuchField, [&rows] { rows->Field("Dauer"); });
  for (const int index : {7, -1}) ExpectError(kDbErrorNoSuchField, [&] { rows->Field(index); });
  rows->MoveNext();
  EXPECT_TRUE(rows->AtEnd());
  ExpectError(kDbErrorNoCurrentRow, [&rows] { rows->Field("Zeit"); });
  ExpectError(kDbErrorNoCurrentRow, [&rows] { rows->MoveNext(); });
}

TEST_P(DatabaseContract, RefusesAStatementWhole) {
  const auto journal = Opened();
  journal->Execute("INSERT INTO o (ID,Firma,Zeit) VALUES (1,'A',#04/03/2024#)");
  journal->Execute("INSERT INTO o (ID,Firma,Zeit) VALUES (5,'B',#04/04/2024#)");
  const auto newest = journal->Execute("SELECT DISTINCT TOP 1 Zeit,Ext,Nr,Firma,Ort,Person FROM o");
  EXPECT_EQ(newest->Field("Firma"), DbValue("B"));
  constexpr std::pair<const char*, std::int32_t> kCases[] = {
      {"INSERT INTO o (ID,Firma) VALUES (2,'O'Brien')", kDbErrorSyntax},
      {"INSERT INTO o (ID,Firma) VALUES (2,'A','B')", kDbErrorSyntax},
      {"INSERT INTO o (ID,Firma) VALUES (1,'zweimal')", kDbErrorFailed},
      {"INSERT INTO o (ID,Firma) VALUES (NULL,'ohne')", kDbErrorFailed},
      {"INSERT INTO o (ID) VALUES (2147483648)", kDbErrorFailed},
      {"UPDATE o SET ID=7", kDbErrorFailed},
      {"DELETE FROM o; DELETE FROM i", kDbErrorSyntax},
      {"SELECT Zeit FROM x", kDbErrorSyntax},
      {"SELECT Umsatz FROM o", kDbErrorSyntax},
      {"SELECT Zeit FROM o WHERE", kDbErrorSyntax},
      {"", kDbErrorSyntax}};
  for (const auto& [sql, number] : kCases) {
    SCOPED_TRACE(sql);
    ExpectError(number, [&journal, text = sql] { journal->Execute(text); });
    EXPECT_EQ(First(*journal, "SELECT Count(ID) FROM o"), Whole(2));
    EXPECT_EQ(First(*journal, "SELECT Firma FROM o WHERE ID=1"), Text("A"));
  }
}

TEST_P(DatabaseContract, OpensAgainWithItsConnectionString) {
  const auto connection = Select();
  ExpectError(kDbErrorObjectClosed, [&] { connection->Execute("SELECT ID FROM o"); });
  connection->Close();
  connection->Open();
  ExpectError(kDbErrorObjectOpen, [&] { connection->Open(); });
  ExpectError(kDbErrorObjectOpen, [&] { connection->SetProvider("x"); });
  const std::string stored = connection->ConnectionString();
  connection->Execute("INSERT INTO o (ID,Firma) VALUES (1,'bleibt')");
  connection->Commit();
  EXPECT_TRUE(connection->IsOpen());
  connection->Close();
  EXPECT_FALSE(connection->IsOpen());
  const auto other = services_.NewConnection();
  for (DatabaseConnection* again : {connection.get(), other.get()}) {
    again->SetConnectionString(stored);
    again->Open();
    EXPECT_EQ(again->ConnectionString(), stored);
    EXPECT_EQ(First(*again, "SELECT Firma FROM o"), Text("bleibt"));
    again->Close();
  }
}

class FailingCommit : public DatabaseContract {};

TEST_P(FailingCommit, KeepsNothing) {
  const auto journal = Opened();
  journal->Execute("INSERT INTO o (ID) VALUES (1)");
  faulty_.FailCommit(kDbErrorFailed, "voll");
  ExpectError(
      kDbErrorFailed, [&] { journal->Commit(); }, true);
  journal->Close();
  faulty_.Heal();
  journal->Open();
  EXPECT_EQ(First(*journal, "SELECT Count(ID) FROM o"), Whole(0));
  EXPECT_EQ(faulty_.commits, 1);
  EXPECT_EQ(log_.lines.size(), GetParam() == Way::kLogged ? 1U : 0U);
}

TEST_P(DatabaseContract, CompactsAndKeepsACopy) {
  const auto connection = Opened();
  const std::string source = connection->ConnectionString();
  for (const std::int64_t id : {1, 2}) {
    connection->Execute("INSERT INTO o (ID) VALUES (" + std::to_string(id) + ")");
    connection->Commit();
    connection->Close();
    services_.CompactDatabase(source, folder_.Path().string() + "\\TelList.OLD");
    const auto copy = Select("telList.old");
    copy->Open();
    EXPECT_EQ(First(*copy, "SELECT Max(ID) FROM o"), Whole(id));
    connection->Open();
    EXPECT_EQ(First(*connection, "SELECT Max(ID) FROM o"), Whole(id));
  }
}

TEST_P(DatabaseContract, FailsToOpenWhatIsNotThere) {
  const auto missing = Select("none.fdb");
  for (int time = 0; time < 2; ++time) {
    ExpectError(
        kDbErrorFailed, [&] { missing->Open(); }, true);
  }
  EXPECT_FALSE(missing->IsOpen());
  const auto unknown = Select();
  unknown->SetProvider("Unbekannt.1");
  ExpectError(kDbErrorProviderNotFound, [&] { unknown->Open(); });
}

INSTANTIATE_TEST_SUITE_P(Ways, DatabaseContract,
                         testing::Values(Way::kStraight, Way::kFaulty, Way::kLogged));
INSTANTIATE_TEST_SUITE_P(Ways, FailingCommit, testing::Values(Way::kFaulty, Way::kLogged));

// The contacts, kept by each of the engines.
class CommitContract : public ProgramFixture,
                       public testing::WithParamInterface<ContactEngineEntry> {
 protected:
  void SetUp() override {
    engine_ = GetParam().make();
    if (!engine_->Obstacle().empty()) GTEST_SKIP() << engine_->Obstacle();
    engine_->Select(state.host);
  }
  // Nothing when it cannot be opened.
  std::unique_ptr<DatabaseConnection> Open(DbMode mode) {
    state.databases.host = engine_->Databases().NewConnection();
    state.databases.host->SetMode(mode);
    state.databases.hostConnectionString.clear();
    return ReopenDB(prompts, state) ? std::move(state.databases.host) : nullptr;
  }
  static void Insert(DatabaseConnection& contacts, int id) {
    contacts.Execute("INSERT INTO Grp_Abt (ID,Bez) VALUES (" + std::to_string(id) + ",'neu')");
  }
  static DbValue New(DatabaseConnection& contacts) {
    return First(contacts, "SELECT Count(ID) FROM Grp_Abt WHERE ID>100");
  }
  DbValue New() { return New(*Open(DbMode::kRead)); }

  std::unique_ptr<ContactEngine> engine_;
};

TEST_P(CommitContract, KeepsAllOfATransactionOrNothing) {
  auto writer = Open(DbMode::kWrite);
  ASSERT_EQ(writer != nullptr, engine_->CanWrite());
  if (!writer) return;
  for (const bool commits : {false, true}) {
    Insert(*writer, 101);
    EXPECT_THROW(Insert(*writer, 101), DatabaseError);
    EXPECT_THROW(writer->Execute("SELECT Umsatz FROM Grp_Abt"), DatabaseError);
    Insert(*writer, 102);
    EXPECT_EQ(New(*writer), Whole(2));
    if (commits) writer->Commit();
    writer->Close();
    EXPECT_EQ(New(), Whole(commits ? 2 : 0));
    writer = Open(DbMode::kWrite);
  }
  // After that, and in other modes, each statement is by itself.
  for (const int id : {103, 105}) {
    writer->Commit();
    Insert(*writer, id);
    writer->Commit();
    Insert(*writer, id + 1);
    writer->Close();
    EXPECT_EQ(New(), Whole(id - 99));
    writer = Open(DbMode::kReadWrite);
  }
  writer->Close();
  ExpectError(kDbErrorObjectClosed, [&] { writer->Commit(); });
}

INSTANTIATE_TEST_SUITE_P(Engines, CommitContract, testing::ValuesIn(ContactEngines()),
                         [](const auto& entry) { return std::string(entry.param.name); });

}  // namespace
}  // namespace orvane
