// What every database connection owes the logic, whatever keeps the data.

#include <gtest/gtest.h>

#include "contact_schema.h"
#include "fakes/faulty_database.h"
#include "fakes/temporary_folder.h"
#include "journal_schema.h"
#include "platform/common/sqlite_services.h"

namespace orvane {
namespace {

// An empty journal and the demo contacts, reached straight or through the faulty services.
class DatabaseContract : public testing::TestWithParam<bool> {
 protected:
  DatabaseContract() {
    CreateJournalFile(folder_ / "TelList.fdb");
    CreateDemoContactFile(folder_ / "CONTACT.FDB");
  }
  std::unique_ptr<DatabaseConnection> Select(const std::string& file) {
    auto connection = services_.NewConnection();
    connection->SetCursorLocation(DbCursorLocation::kClient);
    connection->SetMode(DbMode::kWrite);
    connection->SetProvider("Microsoft.Jet.OLEDB.4.0");
    connection->SetProperty("Data Source", folder_.Path().string() + "\\" + file);
    connection->SetProperty("Jet OLEDB:Database Password", "vnar");
    return connection;
  }
  std::unique_ptr<DatabaseConnection> Opened(const std::string& file) {
    auto connection = Select(file);
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
  const auto journal = Opened("TelList.fdb");
  EXPECT_EQ(First(*journal, "SELECT Max(ID) FROM o"), kNull);
  journal->Execute(
      "INSERT INTO o (ID,Ext,Zeit,Firma,Ort,Person,Nr,AdrID) VALUES (42,-1,#04/03/2024 09:05:07#,"
      "'Müller & Söhne; GmbH','','Unbekannt','0697654321',17)");
  EXPECT_EQ(First(*journal, "SELECT Max(ID) FROM o"), Whole(42));

  const auto rows = journal->Execute(
      "SELECT Zeit,Firma,Ort,Nr,AdrID,DUID,Ext FROM o WHERE Zeit=#04/03/2024 09:05:07#");
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

TEST_P(DatabaseContract, UpdatesByTimeAndDeletesByNumber) {
  const auto journal = Opened("TelList.fdb");
  for (const char* const row :
       {"1,#04/03/2024 09:05:07#", "2,#04/03/2024 09:05:07#", "3,#04/03/2024 09:05:08#"}) {
    journal->Execute("INSERT INTO o (ID,Zeit) VALUES (" + std::string(row) + ")");
  }
  journal->Execute(
      "UPDATE o Set Zeit=#04/04/2024 10:00:00#, Dauer='Besetzt' WHERE Zeit=#04/03/2024 09:05:07#");
  EXPECT_EQ(
      First(*journal, "SELECT Count(ID) FROM o WHERE Dauer='Besetzt' AND FIX(CDBL(Zeit))=45386"),
      Whole(2));
  journal->Execute("DELETE FROM o WHERE ID<3");
  EXPECT_EQ(First(*journal, "SELECT Min(ID) FROM o"), Whole(3));
}

TEST_P(DatabaseContract, FiltersAsTheCallListDoes) {
  const auto journal = Opened("TelList.fdb");
  for (int id = 1; id <= 30; ++id) {
    std::string insert = "INSERT INTO i (ID,Ext,Zeit,Nr) VALUES (" + std::to_string(id);
    insert +=
        std::string(id % 2 == 0 ? ",-1" : ",0") + ",#01/" + std::to_string(100 + id).substr(1);
    journal->Execute(insert + "/2024 08:00:00#," + (id % 3 == 0 ? "NULL" : "'0301'") + ")");
  }
  constexpr std::pair<const char*, int> kCases[] = {
      {"Zeit,Ext,Nr,Firma,Ort,Person FROM i", 30},
      {"TOP 20 Zeit,Ext,Nr,Firma,Ort,Person FROM i", 20},
      {"TOP 300 Zeit,Ext,Nr,Firma,Ort,Person FROM i WHERE Ext=-1", 15},
      {"Zeit,Ext,Nr,Firma,Ort,Person FROM i WHERE Ext=0 AND Nr IS NULL", 5},
      {"Zeit,Ext,Nr,Firma,Ort,Person FROM i WHERE NOT Nr IS NULL", 20},
      {"Zeit FROM i WHERE FIX(CDBL(Zeit))=45292 AND Ext=9", 0},
      {"Zeit FROM i WHERE FIX(CDBL(Zeit))>45292 AND FIX(CDBL(Zeit))<45300", 7},
      {"Dauer FROM i", 1}};
  for (const auto& [query, expected] : kCases) {
    int count = 0;
    const auto rows = journal->Execute(std::string("SELECT DISTINCT ") + query);
    for (; !rows->AtEnd(); rows->MoveNext()) ++count;
    EXPECT_EQ(count, expected) << query;
  }
  EXPECT_EQ(journal->Execute("SELECT DISTINCT TOP 3 Zeit,Ext,ID FROM i")->Field("ID"), Whole(30));
}

TEST_P(DatabaseContract, FindsContactsAndUsers) {
  auto contacts = Opened("contact.fdb");
  const std::string join =
      "SELECT Adressen.AdrID,Adressen.Firma1,AdrDetail.DetID FROM Adressen LEFT JOIN AdrDetail ON "
      "Adressen.AdrID=AdrDetail.AdrID WHERE ";
  const auto persons = contacts->Execute(join +
                                         "AdrDetail.RawTel1 IN('0211445566','49211445566') OR "
                                         "Adressen.RawZentrTel IN('0211445566','49211445566')");
  const auto headOffice = contacts->Execute(join + "Adressen.RawZentrTel='496987654300'");
  EXPECT_EQ(headOffice->Field("Firma1"), Text("Mainufer Treuhand GmbH"));
  EXPECT_EQ(headOffice->Field("DetID"), kNull);

  const std::string users =
      "SELECT Benutzer.ID,Benutzer.VName,Grp_Abt.Bez FROM Grp_Abt INNER JOIN Benutzer ON "
      "Grp_Abt.ID=Benutzer.AbtID WHERE Durchwahl=";
  EXPECT_EQ(contacts->Execute(users + "'217'")->Field("Bez"), Text("Einkauf"));
  EXPECT_TRUE(contacts->Execute(users + "'44'")->AtEnd());

  contacts.reset();  // rows outlive the connection
  EXPECT_EQ(persons->Field("AdrID"), Whole(2));
  EXPECT_EQ(persons->Field("Firma1"), Text("Rheinkontor Spedition AG"));
  persons->MoveNext();
  EXPECT_EQ(persons->Field("DetID"), Whole(104));
  persons->MoveNext();
  EXPECT_TRUE(persons->AtEnd());
}

TEST_P(DatabaseContract, RefusesAStatementWhole) {
  const auto journal = Opened("TelList.fdb");
  journal->Execute("INSERT INTO o (ID,Firma) VALUES (1,'A')");
  journal->Execute("INSERT INTO o (ID,Firma) VALUES (5,'B')");
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
  const auto connection = Select("TelList.fdb");
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
  const auto unknown = Select("TelList.fdb");
  unknown->SetProvider("Unbekannt.1");
  ExpectError(kDbErrorProviderNotFound, [&] { unknown->Open(); });
}

INSTANTIATE_TEST_SUITE_P(Sqlite, DatabaseContract, testing::Values(false));
INSTANTIATE_TEST_SUITE_P(Faulty, DatabaseContract, testing::Values(true));

}  // namespace
}  // namespace orvane
