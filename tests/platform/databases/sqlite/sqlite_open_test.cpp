// Opening files that are missing, damaged or up to something.

#include "platform/databases/sqlite/sqlite_test_support.h"

namespace orvane {
namespace {

constexpr DbMode kModes[] = {DbMode::kUnknown, DbMode::kRead, DbMode::kWrite, DbMode::kReadWrite};

using SqliteOpen = SqliteFixture;

TEST_F(SqliteOpen, RefusesFilesThatAreNoDatabase) {
  const std::string whole = ReadFile(journal_);
  const std::string jet = std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(8000, 'j');
  for (const std::string& content :
       {std::string(), std::string("x"), std::string(100, '\0'), std::string(100'000, 'A'), jet,
        whole.substr(0, 511), std::string(whole).replace(5, 1, "x"),
        std::string(whole).replace(100, 60, 60, '\xEE')}) {
    SCOPED_TRACE(testing::PrintToString(content.substr(0, 24)) + std::to_string(content.size()));
    const auto file = folder_.Write("bad.fdb", content);
    for (const DbMode mode : kModes) {
      EXPECT_EQ(FailureOf([&] { Open(file, mode); }),
                "Nicht erkennbares Datenbankformat '" + file.string() + "'.");
    }
    EXPECT_EQ(ReadFile(file), content);
  }
  EXPECT_TRUE(Contains(FailureOf([&] { Open(folder_.Path()); }), "Nicht erkennbares"));
  EXPECT_EQ(Names(), "TelList.fdb bad.fdb ");
}

TEST_F(SqliteOpen, NeverCreatesAFileNorOverwritesOne) {
  for (const DbMode mode : kModes) {
    EXPECT_EQ(FailureOf([&] { Open("C:\\fehlt\\TelList.fdb", mode); }),
              "Die Datei 'C:\\fehlt\\TelList.fdb' konnte nicht gefunden werden.");
    EXPECT_TRUE(Contains(FailureOf([&] { Open(folder_ / "none.fdb", mode); }), "gefunden"));
    EXPECT_TRUE(Contains(FailureOf([&] { Open("", mode); }), "gefunden"));
  }
  EXPECT_THROW(CreateJournalFile(journal_), std::runtime_error);
  EXPECT_EQ(Names(), "TelList.fdb ");
}

// Whatever a file brings along, statements reach its tables and run nothing of its own.
TEST_F(SqliteOpen, DoesNotTrustTheFile) {
  RawSqlite(journal_).Run(
      "CREATE TRIGGER t AFTER INSERT ON o BEGIN DELETE FROM o; END;"
      "CREATE VIEW v AS SELECT 1 AS a;"
      "CREATE TABLE once (a INTEGER PRIMARY KEY ON CONFLICT ROLLBACK);"
      "CREATE TABLE blobs (a BLOB); INSERT INTO blobs VALUES (zeroblob(2000000))");
  const auto connection = Open(journal_);
  const auto failure = [&](const std::string& sql, std::int32_t number = kDbErrorFailed) {
    return FailureOf([&] { connection->Execute(sql); }, number, false);
  };
  connection->Execute(InsertCall(1));
  for (const char* const sql :
       {"SELECT a FROM v", "SELECT name FROM sqlite_schema", "SELECT sql FROM sqlite_master",
        "SELECT name FROM pragma_database_list", "DELETE FROM sqlite_schema",
        "SELECT FIX(Firma) FROM o"}) {
    EXPECT_NE(failure(sql, kDbErrorSyntax), "no failure") << sql;
  }
  EXPECT_TRUE(Contains(failure("SELECT a FROM blobs"), "zu groß"));
  const std::string huge(1'100'000, 'x');
  EXPECT_TRUE(Contains(failure("INSERT INTO o (ID,Firma) VALUES (2,'" + huge + "')"), "zu groß"));
  connection->Commit();
  EXPECT_EQ(RawSqlite(journal_).Run("SELECT ID FROM o; PRAGMA user_version"), "1 0 ");

  // A file that ends the transaction by itself does not get the rest of it for good.
  connection->Close();
  connection->Open();
  connection->Execute("INSERT INTO once (a) VALUES (1)");
  EXPECT_TRUE(Contains(failure("INSERT INTO once (a) VALUES (1)"), "doppelte Werte"));
  EXPECT_NE(FailureOf([&] { connection->Execute("DELETE FROM o"); }), "no failure");
  EXPECT_THROW(connection->Commit(), DatabaseError);
  EXPECT_EQ(RawSqlite(journal_).Run("SELECT ID FROM o UNION ALL SELECT a FROM once"), "1 ");
}

}  // namespace
}  // namespace orvane
