// Opening files that are missing, damaged, in use or protected.

#include <sys/stat.h>

#include "fakes/child_process.h"
#include "sqlite_test_support.h"

namespace orvane {
namespace {

constexpr DbMode kModes[] = {DbMode::kUnknown, DbMode::kRead, DbMode::kWrite, DbMode::kReadWrite};
constexpr const char* kInUse = "wird bereits von einem anderen Programm verwendet";

class SqliteOpen : public SqliteFile {
 protected:
  // Another process that has done something to the file and holds on for a while.
  std::unique_ptr<ChildProcess> Other(const std::string& sql, useconds_t microseconds) const {
    auto other = std::make_unique<ChildProcess>([&](const ChildProcess::Say& say) {
      RawSqlite database(journal_);
      database.Run(sql);
      say("done");
      return usleep(microseconds);
    });
    EXPECT_EQ(other->Line(), "done");
    return other;
  }
};
constexpr useconds_t kForLong = 100'000'000;

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

TEST_F(SqliteOpen, SaysWhenAnotherProcessLocksTheFile) {
  auto other = Other("BEGIN EXCLUSIVE", kForLong);
  for (const DbMode mode : {DbMode::kUnknown, DbMode::kWrite}) {
    EXPECT_TRUE(Contains(FailureOf([&] { Open(journal_, mode); }), kInUse));
  }
  other.reset();
  EXPECT_NO_THROW(Open(journal_)->Execute(InsertCall(1)));
}

// Some rounds, because a busy machine may hold up the other process for longer than the wait.
TEST_F(SqliteOpen, WaitsForAShortLock) {
  bool opened = false;
  for (int round = 0; round < 10 && !opened; ++round) {
    const auto other = Other("BEGIN IMMEDIATE", 200'000);
    opened = FailureOf([this] { Open(journal_); }) == "no failure";
  }
  EXPECT_TRUE(opened);
}

// A reader lets the file be opened, but a statement cannot be completed: it must fail as a whole.
TEST_F(SqliteOpen, FailsWhileAnotherProcessReadsOn) {
  const auto insert = [this](int id) {
    return FailureOf([&] { Open(journal_)->Execute(InsertCall(id)); });
  };
  auto reader = Other("BEGIN; SELECT * FROM o", kForLong);
  EXPECT_TRUE(Contains(insert(1), kInUse));
  reader.reset();
  EXPECT_EQ(insert(2), "no failure");
  EXPECT_EQ(RawSqlite(journal_).Run("SELECT ID FROM o"), "2 ");
}

// Permissions do not bind the system's administrator, so the child becomes an ordinary user.
TEST_F(SqliteOpen, SaysWhenTheFileIsProtected) {
  constexpr const char* kProtected = "ist schreibgeschützt. Änderungen sind nicht möglich.";
  constexpr const char* kUnreadable =
      "konnte nicht geöffnet werden. Prüfen Sie die Zugriffsrechte.";
  const std::tuple<mode_t, mode_t, DbMode, const char*> kCases[] = {
      {0666, 0777, DbMode::kWrite, "opened"},       {0444, 0777, DbMode::kWrite, kProtected},
      {0444, 0777, DbMode::kReadWrite, kProtected}, {0444, 0777, DbMode::kUnknown, "opened"},
      {0444, 0777, DbMode::kRead, "opened"},        {0666, 0555, DbMode::kWrite, kProtected},
      {0666, 0555, DbMode::kUnknown, "opened"},     {0000, 0777, DbMode::kWrite, kUnreadable},
      {0000, 0777, DbMode::kRead, kUnreadable},     {0666, 0000, DbMode::kUnknown, kUnreadable}};
  for (const auto& [file, folder, mode, expected] : kCases) {
    SCOPED_TRACE(testing::Message()
                 << std::oct << file << " in " << folder << " mode " << static_cast<int>(mode));
    chmod(journal_.c_str(), file);
    chmod(folder_.Path().c_str(), folder);
    ChildProcess child([&](const ChildProcess::Say& say) {
      if (geteuid() == 0 && setuid(kNobody) != 0) return 1;
      Open(journal_, mode)->Execute("SELECT Max(ID) FROM o");
      say("opened");
      return 0;
    });
    const std::string answer = child.Line();
    chmod(folder_.Path().c_str(), 0755);
    EXPECT_TRUE(Contains(answer, expected)) << answer;
  }
}

// Whatever a file brings along, statements reach its tables and run nothing of its own.
TEST_F(SqliteOpen, DoesNotTrustTheFile) {
  RawSqlite(journal_).Run(
      "CREATE TRIGGER t AFTER INSERT ON o BEGIN DELETE FROM o; END;"
      "CREATE VIEW v AS SELECT 1 AS a;"
      "CREATE TABLE blobs (a BLOB); INSERT INTO blobs VALUES (zeroblob(2000000))");
  const auto connection = Open(journal_);
  const auto failure = [&](const std::string& sql, std::int32_t number = kDbErrorFailed) {
    return FailureOf([&] { connection->Execute(sql); }, number);
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
  EXPECT_EQ(RawSqlite(journal_).Run("SELECT ID FROM o"), "1 ");
}

}  // namespace
}  // namespace orvane
