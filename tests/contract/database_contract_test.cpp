// What every database connection owes the logic, whatever keeps the data.

#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "contact_schema.h"
#include "fakes/faulty_database.h"
#include "fakes/temporary_folder.h"
#include "journal_schema.h"
#include "platform/common/sqlite_services.h"
#include "platform/database.h"
#include "platform/errors.h"

namespace orvane {
namespace {

// A place with an empty journal and the demo contacts, and the services to reach them.
class DatabaseBackend {
 public:
  virtual ~DatabaseBackend() = default;
  virtual DatabaseServices& Services() = 0;
  // Sets provider and properties, as the logic does before the first open.
  virtual void SelectJournal(DatabaseConnection& connection) = 0;
  virtual void SelectContacts(DatabaseConnection& connection) = 0;
  // A database that does not exist.
  virtual void SelectMissing(DatabaseConnection& connection) = 0;
};

class SqliteBackend : public DatabaseBackend {
 public:
  SqliteBackend() {
    CreateJournalFile(folder_ / "TelList.fdb");
    CreateDemoContactFile(folder_ / "CONTACT.FDB");
  }
  DatabaseServices& Services() override { return services_; }
  void SelectJournal(DatabaseConnection& connection) override {
    Select(connection, "\\TelList.fdb", "vnar");
  }
  void SelectContacts(DatabaseConnection& connection) override {
    Select(connection, "\\contact.fdb", "4rdxtz8w");
  }
  void SelectMissing(DatabaseConnection& connection) override {
    Select(connection, "\\none.fdb", "vnar");
  }

 private:
  void Select(DatabaseConnection& connection, const char* name, const char* password) {
    connection.SetProvider("Microsoft.Jet.OLEDB.4.0");
    connection.SetProperty("Data Source", folder_.Path().string() + name);
    connection.SetProperty("Jet OLEDB:Database Password", password);
    connection.SetProperty("Persist Security Info", "False");
  }

  TemporaryFolder folder_;
  SqliteServices services_;
};

class FaultyBackend : public SqliteBackend {
 public:
  DatabaseServices& Services() override { return faulty_; }

 private:
  FaultyDatabase faulty_{SqliteBackend::Services()};
};

struct BackendFactory {
  const char* name;
  std::function<std::unique_ptr<DatabaseBackend>()> make;
};

class DatabaseContract : public testing::TestWithParam<BackendFactory> {
 protected:
  std::unique_ptr<DatabaseConnection> NewConnection() {
    auto connection = backend_->Services().NewConnection();
    connection->SetCursorLocation(DbCursorLocation::kClient);
    return connection;
  }
  std::unique_ptr<DatabaseConnection> OpenJournal() {
    auto connection = NewConnection();
    connection->SetMode(DbMode::kWrite);
    backend_->SelectJournal(*connection);
    connection->Open();
    return connection;
  }
  std::unique_ptr<DatabaseConnection> OpenContacts() {
    auto connection = NewConnection();
    backend_->SelectContacts(*connection);
    connection->Open();
    return connection;
  }

  std::unique_ptr<DatabaseBackend> backend_ = GetParam().make();
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

std::int64_t Whole(const DbValue& value) {
  return std::get<std::int64_t>(value);
}
std::string Text(const DbValue& value) {
  return std::get<std::string>(value);
}
bool IsNull(const DbValue& value) {
  return std::holds_alternative<std::monostate>(value);
}

std::int64_t Count(DatabaseConnection& connection, const std::string& rest) {
  return Whole(connection.Execute("SELECT Count(ID) FROM " + rest)->Field(0));
}

TEST_P(DatabaseContract, KeepsAndFindsCalls) {
  const auto journal = OpenJournal();
  EXPECT_TRUE(IsNull(journal->Execute("SELECT Max(ID) FROM o")->Field(0)));
  journal->Execute(
      "INSERT INTO o (ID,Ext,Zeit,Firma,Ort,Person,Nr,AdrID) VALUES (42,-1,#04/03/2024 09:05:07#,"
      "'Müller & Söhne; GmbH','','Unbekannt','0697654321',17)");
  EXPECT_EQ(Whole(journal->Execute("SELECT Max(ID) FROM o")->Field(0)), 42);

  const auto rows = journal->Execute(
      "SELECT Zeit,Firma,Ort,Nr,AdrID,DUID,Ext FROM o WHERE Zeit=#04/03/2024 09:05:07#");
  ASSERT_FALSE(rows->AtEnd());
  EXPECT_EQ(std::get<double>(rows->Field("zeit")), 45385 + 32707 / 86400.0);
  EXPECT_EQ(Text(rows->Field("FIRMA")), "Müller & Söhne; GmbH");
  EXPECT_EQ(Text(rows->Field("Ort")), "");
  EXPECT_EQ(Text(rows->Field(3)), "0697654321");
  EXPECT_EQ(Whole(rows->Field("AdrID")), 17);
  EXPECT_TRUE(IsNull(rows->Field("DUID")));
  EXPECT_EQ(Whole(rows->Field("Ext")), -1);
  ExpectError(kDbErrorNoSuchField, [&rows] { rows->Field("Dauer"); });
  ExpectError(kDbErrorNoSuchField, [&rows] { rows->Field(7); });
  ExpectError(kDbErrorNoSuchField, [&rows] { rows->Field(-1); });
  rows->MoveNext();
  EXPECT_TRUE(rows->AtEnd());
  ExpectError(kDbErrorNoCurrentRow, [&rows] { rows->Field("Zeit"); });
  ExpectError(kDbErrorNoCurrentRow, [&rows] { rows->MoveNext(); });
}

TEST_P(DatabaseContract, UpdatesByTimeAndDeletesByNumber) {
  const auto journal = OpenJournal();
  for (const char* const row :
       {"1,#04/03/2024 09:05:07#", "2,#04/03/2024 09:05:07#", "3,#04/03/2024 09:05:08#"}) {
    journal->Execute("INSERT INTO o (ID,Zeit) VALUES (" + std::string(row) + ")");
  }
  journal->Execute(
      "UPDATE o Set Zeit=#04/04/2024 10:00:00#, Dauer='Besetzt' WHERE Zeit=#04/03/2024 09:05:07#");
  EXPECT_EQ(Count(*journal, "o WHERE Dauer='Besetzt' AND FIX(CDBL(Zeit))=45386"), 2);
  EXPECT_EQ(Count(*journal, "o WHERE FIX(CDBL(Zeit))>45377 AND FIX(CDBL(Zeit))<45386"), 1);
  journal->Execute("DELETE FROM o WHERE ID<" + std::to_string(602 - 599));
  EXPECT_EQ(Whole(journal->Execute("SELECT Min(ID) FROM o")->Field(0)), 3);
  EXPECT_EQ(Count(*journal, "i"), 0);
}

TEST_P(DatabaseContract, FiltersAsTheCallListDoes) {
  const auto journal = OpenJournal();
  for (int id = 1; id <= 30; ++id) {
    const std::string ext = id % 2 == 0 ? "-1" : "0";
    const std::string number = id % 3 == 0 ? "NULL" : "'030" + std::to_string(id) + "'";
    const std::string day = std::to_string(100 + id).substr(1);
    std::string insert = "INSERT INTO i (ID,Ext,Zeit,Nr) VALUES (" + std::to_string(id);
    insert.append(",").append(ext).append(",#01/").append(day);
    journal->Execute(insert.append("/2024 08:00:00#,").append(number).append(")"));
  }
  struct Case {
    const char* query;
    int rows;
  };
  const Case cases[] = {
      {"SELECT DISTINCT Zeit,Ext,Nr,Firma,Ort,Person FROM i", 30},
      {"SELECT DISTINCT TOP 20 Zeit,Ext,Nr,Firma,Ort,Person FROM i", 20},
      {"SELECT DISTINCT TOP 300 Zeit,Ext,Nr,Firma,Ort,Person FROM i WHERE Ext=-1", 15},
      {"SELECT DISTINCT Zeit,Ext,Nr,Firma,Ort,Person FROM i WHERE Ext=0 AND Nr IS NULL", 5},
      {"SELECT DISTINCT Zeit,Ext,Nr,Firma,Ort,Person FROM i WHERE NOT Nr IS NULL", 20},
      {"SELECT DISTINCT Zeit FROM i WHERE FIX(CDBL(Zeit))=45292 AND Ext=9", 0},
      {"SELECT DISTINCT Zeit FROM i WHERE FIX(CDBL(Zeit))>45292 AND FIX(CDBL(Zeit))<45300", 7},
      {"SELECT DISTINCT Dauer FROM i", 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.query);
    int count = 0;
    for (const auto rows = journal->Execute(c.query); !rows->AtEnd(); rows->MoveNext()) ++count;
    EXPECT_EQ(count, c.rows);
  }
}

TEST_P(DatabaseContract, FindsContactsAndUsers) {
  const auto contacts = OpenContacts();
  const auto persons = contacts->Execute(
      "SELECT Adressen.AdrID,Adressen.Firma1,Adressen.Ort,AdrDetail.DetID,AdrDetail.VName,"
      "AdrDetail.NName FROM Adressen LEFT JOIN AdrDetail ON Adressen.AdrID=AdrDetail.AdrID WHERE "
      "AdrDetail.RawTel1 IN('0211445566','49211445566') OR "
      "Adressen.RawZentrTel IN('0211445566','49211445566')");
  EXPECT_EQ(Whole(persons->Field("AdrID")), 2);
  EXPECT_EQ(Text(persons->Field("Firma1")), "Rheinkontor Spedition AG");
  EXPECT_EQ(Text(persons->Field("Ort")), "Düsseldorf");
  persons->MoveNext();
  EXPECT_GT(Whole(persons->Field("DetID")), 0);
  persons->MoveNext();
  EXPECT_TRUE(persons->AtEnd());

  const auto headOffice = contacts->Execute(
      "SELECT Adressen.Firma1,AdrDetail.DetID FROM Adressen LEFT JOIN AdrDetail ON "
      "Adressen.AdrID=AdrDetail.AdrID WHERE Adressen.RawZentrTel='496987654300'");
  EXPECT_EQ(Text(headOffice->Field("Firma1")), "Mainufer Treuhand GmbH");
  EXPECT_TRUE(IsNull(headOffice->Field("DetID")));

  const std::string userQuery =
      "SELECT Benutzer.ID,Benutzer.VName,Benutzer.NName,Grp_Abt.Bez FROM Grp_Abt INNER JOIN "
      "Benutzer ON Grp_Abt.ID=Benutzer.AbtID WHERE Durchwahl=";
  const auto user = contacts->Execute(userQuery + "'217'");
  EXPECT_EQ(Text(user->Field("NName")) + Text(user->Field("Bez")), "BrandtEinkauf");
  EXPECT_EQ(Whole(user->Field("Id")), 1);
  EXPECT_TRUE(contacts->Execute(userQuery + "'44'")->AtEnd());
}

TEST_P(DatabaseContract, RefusesAStatementWhole) {
  const auto journal = OpenJournal();
  journal->Execute("INSERT INTO o (ID,Firma) VALUES (1,'A')");
  journal->Execute("INSERT INTO o (ID,Firma) VALUES (5,'B')");
  struct Case {
    const char* sql;
    std::int32_t number;
  };
  const Case cases[] = {
      {"INSERT INTO o (ID,Firma) VALUES (2,'O'Brien')", kDbErrorSyntax},
      {"INSERT INTO o (ID,Firma) VALUES (2,'A'+'B')", kDbErrorSyntax},
      {"INSERT INTO o (ID,Firma) VALUES (2,'Wein' OR 'Bier')", kDbErrorSyntax},
      {"INSERT INTO o (ID,Firma) VALUES (2,'A','B')", kDbErrorSyntax},
      {"INSERT INTO o (ID,Firma) VALUES (1,'zweimal')", kDbErrorFailed},
      {"INSERT INTO o (ID,Firma) VALUES (NULL,'ohne')", kDbErrorFailed},
      {"UPDATE o SET ID=7", kDbErrorFailed},
      {"DELETE FROM o; DELETE FROM i", kDbErrorSyntax},
      {"SELECT Zeit FROM x", kDbErrorSyntax},
      {"SELECT Umsatz FROM o", kDbErrorSyntax},
      {"UPDATE x Set Zeit=#01/01/2024#", kDbErrorSyntax},
      {"SELECT Zeit FROM o WHERE", kDbErrorSyntax},
      {"", kDbErrorSyntax},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.sql);
    ExpectError(c.number, [&] { journal->Execute(c.sql); });
    EXPECT_EQ(Count(*journal, "o"), 2);
    EXPECT_EQ(Count(*journal, "o WHERE ID=1 AND Firma='A'"), 1);
  }
}

TEST_P(DatabaseContract, RowsOutliveTheConnection) {
  auto contacts = OpenContacts();
  const auto rows = contacts->Execute("SELECT AdrID FROM Adressen");
  contacts->Close();
  contacts.reset();
  int count = 0;
  for (; !rows->AtEnd(); rows->MoveNext()) ++count;
  EXPECT_EQ(count, 15);
}

TEST_P(DatabaseContract, OpensAgainWithItsConnectionString) {
  const auto connection = OpenJournal();
  const std::string stored = connection->ConnectionString();
  connection->Execute("INSERT INTO o (ID,Firma) VALUES (1,'bleibt')");
  connection->Close();
  EXPECT_FALSE(connection->IsOpen());

  connection->SetConnectionString(stored);
  connection->Open();
  EXPECT_EQ(connection->ConnectionString(), stored);
  EXPECT_EQ(Count(*connection, "o WHERE Firma='bleibt'"), 1);

  const auto other = NewConnection();
  other->SetConnectionString(stored);
  other->Open();
  EXPECT_EQ(Count(*other, "o"), 1);
}

TEST_P(DatabaseContract, KnowsWhetherItIsOpen) {
  const auto connection = NewConnection();
  backend_->SelectJournal(*connection);
  EXPECT_FALSE(connection->IsOpen());
  ExpectError(kDbErrorObjectClosed, [&] { connection->Execute("SELECT ID FROM o"); });
  connection->Close();
  connection->Open();
  EXPECT_TRUE(connection->IsOpen());
  ExpectError(kDbErrorObjectOpen, [&] { connection->Open(); });
  ExpectError(kDbErrorObjectOpen, [&] { connection->SetProvider("x"); });
  connection->Close();
  connection->Close();
  EXPECT_FALSE(connection->IsOpen());
}

TEST_P(DatabaseContract, FailsToOpenWhatIsNotThere) {
  const auto missing = NewConnection();
  backend_->SelectMissing(*missing);
  ExpectError(kDbErrorFailed, [&] { missing->Open(); });
  EXPECT_FALSE(missing->IsOpen());
  ExpectError(kDbErrorFailed, [&] { missing->Open(); });

  const auto unknown = NewConnection();
  backend_->SelectJournal(*unknown);
  unknown->SetProvider("Unbekannt.1");
  ExpectError(kDbErrorProviderNotFound, [&] { unknown->Open(); });
}

INSTANTIATE_TEST_SUITE_P(
    Databases, DatabaseContract,
    testing::Values(BackendFactory{"Sqlite", [] { return std::make_unique<SqliteBackend>(); }},
                    BackendFactory{"Faulty", [] { return std::make_unique<FaultyBackend>(); }}),
    [](const testing::TestParamInfo<BackendFactory>& backend) { return backend.param.name; });

}  // namespace
}  // namespace orvane
