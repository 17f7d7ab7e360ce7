// What every database connection owes the logic, whatever keeps the data.

#include <gtest/gtest.h>

#include "fakes/faulty_database.h"
#include "fakes/temporary_folder.h"
#include "journal_schema.h"
#include "platform/databases/sqlite/sqlite_services.h"

namespace orvane {
namespace {

// An empty journal, reached straight or through the faulty services.
class DatabaseContract : public testing::TestWithParam<bool> {
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
  DatabaseServices& services_ = GetParam() ? static_cast<DatabaseServices&>(faulty_) : sqlite_;
};

void ExpectError(std::int32_t number, const std::function<void()>& action) {
  try {
    action();
    ADD_FAILURE() << "no error, expected " << number;
  } catch (const DatabaseError& error) {
    EXPECT_EQ(error.Number(), number) << error.Description();
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
  EXPECT_TRUE(connection->IsOpen());
  connection->Close();
  EXPECT_FALSE(connection->IsOpen());
  const auto other = services_.NewConnection();
  for (DatabaseConnection* again : {connection.get(), other.get()}) {
    again->SetConnectionString(stored);
    again->Open();
    EXPECT_EQ(again->ConnectionString(), stored);
    EXPECT_EQ(First(*again, "SELECT Firma FROM o"), Text("bleibt"));
  }
}

TEST_P(DatabaseContract, FailsToOpenWhatIsNotThere) {
  const auto missing = Select("none.fdb");
  for (int time = 0; time < 2; ++time) ExpectError(kDbErrorFailed, [&] { missing->Open(); });
  EXPECT_FALSE(missing->IsOpen());
  const auto unknown = Select();
  unknown->SetProvider("Unbekannt.1");
  ExpectError(kDbErrorProviderNotFound, [&] { unknown->Open(); });
}

INSTANTIATE_TEST_SUITE_P(Sqlite, DatabaseContract, testing::Values(false));
INSTANTIATE_TEST_SUITE_P(Faulty, DatabaseContract, testing::Values(true));

}  // namespace
}  // namespace orvane
