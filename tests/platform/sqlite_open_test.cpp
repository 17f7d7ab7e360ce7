// Opening files that are missing, damaged, in use or protected.

#include <sys/stat.h>
#include <unistd.h>

#include "fakes/child_process.h"
#include "journal_schema.h"
#include "sqlite_test_support.h"

namespace orvane {
namespace {

namespace fs = std::filesystem;

constexpr DbMode kModes[] = {DbMode::kUnknown, DbMode::kRead, DbMode::kWrite, DbMode::kReadWrite};

class SqliteOpen : public testing::Test {
 protected:
  SqliteOpen() { CreateJournalFile(journal_); }

  TemporaryFolder folder_;
  fs::path journal_ = folder_ / "TelList.fdb";
};

TEST_F(SqliteOpen, RefusesFilesThatAreNoDatabase) {
  const std::string whole = ReadFile(journal_);
  std::string damagedHeader = whole;
  damagedHeader[5] = 'x';
  std::string damagedSchema = whole;
  damagedSchema.replace(100, 60, 60, '\xEE');
  const std::string contents[] = {
      "",
      "x",
      std::string(100, '\0'),
      std::string(100'000, 'A'),
      std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(8000, 'j'),
      whole.substr(0, 511),
      damagedHeader,
      damagedSchema,
  };
  for (const std::string& content : contents) {
    SCOPED_TRACE(testing::PrintToString(content.substr(0, 24)) + std::to_string(content.size()));
    const fs::path file = folder_.Write("bad.fdb", content);
    for (const DbMode mode : kModes) {
      const auto connection = Select(file, mode);
      EXPECT_EQ(FailureOf([&] { connection->Open(); }),
                "Nicht erkennbares Datenbankformat '" + file.string() + "'.");
      EXPECT_FALSE(connection->IsOpen());
    }
    EXPECT_EQ(ReadFile(file), content);
  }
  EXPECT_TRUE(Contains(FailureOf([&] { OpenFile(folder_.Path()); }), "Nicht erkennbares"));
  EXPECT_EQ(Names(folder_), "TelList.fdb bad.fdb ");
}

TEST_F(SqliteOpen, NeverCreatesAFile) {
  for (const DbMode mode : kModes) {
    EXPECT_EQ(FailureOf([&] { OpenFile("C:\\fehlt\\TelList.fdb", mode); }),
              "Die Datei 'C:\\fehlt\\TelList.fdb' konnte nicht gefunden werden.");
    EXPECT_TRUE(Contains(FailureOf([&] { OpenFile(folder_ / "none.fdb", mode); }), "gefunden"));
    EXPECT_TRUE(Contains(FailureOf([&] { OpenFile("", mode); }), "gefunden"));
  }
  EXPECT_EQ(Names(folder_), "TelList.fdb ");
}

TEST_F(SqliteOpen, LeavesNothingBesideTheFile) {
  {
    const auto connection = OpenFile(journal_);
    connection->Execute(InsertCall(1));
    EXPECT_EQ(Names(folder_), "TelList.fdb ");
  }
  EXPECT_EQ(Names(folder_), "TelList.fdb ");
}

// A file that comes from a program that keeps its changes in a second file is brought to one.
TEST_F(SqliteOpen, TurnsWriteAheadLoggingOff) {
  RawSqlite(journal_).Run("PRAGMA journal_mode=WAL; INSERT INTO o (ID) VALUES (1)");
  {
    const auto connection = OpenFile(journal_);
    connection->Execute(InsertCall(2));
    EXPECT_EQ(Names(folder_), "TelList.fdb ");
  }
  EXPECT_EQ(RawSqlite(journal_).Run("SELECT count(*) FROM o"), "2 ");
}

TEST_F(SqliteOpen, SaysWhenAnotherProcessLocksTheFile) {
  {
    ChildProcess other([this](const ChildProcess::Say& say) {
      RawSqlite database(journal_);
      database.Run("BEGIN EXCLUSIVE");
      say("locked");
      pause();
    });
    ASSERT_EQ(other.Line(), "locked");
    for (const DbMode mode : {DbMode::kUnknown, DbMode::kWrite}) {
      const std::string failure = FailureOf([&] { OpenFile(journal_, mode); });
      EXPECT_TRUE(Contains(failure, "wird bereits von einem anderen Programm verwendet"))
          << failure;
    }
  }
  EXPECT_NO_THROW(OpenFile(journal_)->Execute(InsertCall(1)));
}

// Some rounds, because a busy machine may hold up the other process for longer than the wait.
TEST_F(SqliteOpen, WaitsForAShortLock) {
  bool opened = false;
  for (int round = 0; round < 10 && !opened; ++round) {
    ChildProcess other([this](const ChildProcess::Say& say) {
      RawSqlite database(journal_);
      database.Run("BEGIN IMMEDIATE");
      say("locked");
      usleep(200'000);
      database.Run("COMMIT");
    });
    ASSERT_EQ(other.Line(), "locked");
    opened = FailureOf([this] { OpenFile(journal_); }) == "no failure";
  }
  EXPECT_TRUE(opened);
}

// A reader lets the file be opened, but a statement cannot be completed: it must fail as a whole.
TEST_F(SqliteOpen, FailsWhileAnotherProcessReadsOn) {
  const auto insert = [this](int id) {
    const auto connection = OpenFile(journal_);
    return FailureOf([&] { connection->Execute(InsertCall(id)); });
  };
  {
    ChildProcess reader([this](const ChildProcess::Say& say) {
      RawSqlite database(journal_);
      database.Run("BEGIN; SELECT * FROM o");
      say("reading");
      pause();
    });
    ASSERT_EQ(reader.Line(), "reading");
    EXPECT_TRUE(Contains(insert(1), "wird bereits"));
  }
  EXPECT_EQ(insert(2), "no failure");
  EXPECT_EQ(RawSqlite(journal_).Run("SELECT ID FROM o"), "2 ");
}

// Permissions do not bind the system's administrator, so the child becomes an ordinary user.
std::string OpenAsOrdinaryUser(const fs::path& file, DbMode mode) {
  ChildProcess child([&](const ChildProcess::Say& say) {
    if (geteuid() == 0 && setuid(65534) != 0) return say("cannot change the user");
    const auto connection = OpenFile(file, mode);
    connection->Execute("SELECT Max(ID) FROM o");
    say("opened");
  });
  return child.Line();
}

TEST_F(SqliteOpen, SaysWhenTheFileIsProtected) {
  constexpr const char* kProtected = "ist schreibgeschützt. Änderungen sind nicht möglich.";
  constexpr const char* kUnreadable =
      "konnte nicht geöffnet werden. Prüfen Sie die Zugriffsrechte.";
  struct Case {
    mode_t file;
    mode_t folder;
    DbMode mode;
    const char* expected;
  };
  const Case cases[] = {
      {0666, 0777, DbMode::kWrite, "opened"},       {0444, 0777, DbMode::kWrite, kProtected},
      {0444, 0777, DbMode::kReadWrite, kProtected}, {0444, 0777, DbMode::kUnknown, "opened"},
      {0444, 0777, DbMode::kRead, "opened"},        {0666, 0555, DbMode::kWrite, kProtected},
      {0666, 0555, DbMode::kUnknown, "opened"},     {0000, 0777, DbMode::kWrite, kUnreadable},
      {0000, 0777, DbMode::kRead, kUnreadable},     {0666, 0000, DbMode::kUnknown, kUnreadable},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << std::oct << c.file << " in " << c.folder << " mode "
                                    << static_cast<int>(c.mode));
    chmod(journal_.c_str(), c.file);
    chmod(folder_.Path().c_str(), c.folder);
    const std::string answer = OpenAsOrdinaryUser(journal_, c.mode);
    chmod(folder_.Path().c_str(), 0755);
    EXPECT_TRUE(Contains(answer, c.expected)) << answer;
  }
}

// Whatever a file brings along, statements reach its tables and run nothing of its own.
TEST_F(SqliteOpen, DoesNotTrustTheFile) {
  RawSqlite(journal_).Run(
      "CREATE TRIGGER t AFTER INSERT ON o BEGIN DELETE FROM o; END;"
      "CREATE VIEW v AS SELECT 1 AS a;"
      "CREATE TABLE blobs (a BLOB); INSERT INTO blobs VALUES (zeroblob(2000000))");
  const auto connection = OpenFile(journal_);
  connection->Execute(InsertCall(1));
  EXPECT_FALSE(connection->Execute("SELECT ID FROM o")->AtEnd());
  for (const char* const sql :
       {"SELECT a FROM v", "SELECT name FROM sqlite_schema", "SELECT sql FROM sqlite_master",
        "SELECT name FROM pragma_database_list", "DELETE FROM sqlite_schema",
        "SELECT FIX(Firma) FROM o"}) {
    SCOPED_TRACE(sql);
    EXPECT_NE(FailureOf([&] { connection->Execute(sql); }, kDbErrorSyntax), "no failure");
  }
  EXPECT_TRUE(Contains(FailureOf([&] { connection->Execute("SELECT a FROM blobs"); }), "zu groß"));
  const std::string huge = "INSERT INTO o (ID,Firma) VALUES (2,'" + std::string(1'100'000, 'x');
  EXPECT_TRUE(Contains(FailureOf([&] { connection->Execute(huge + "')"); }), "zu groß"));
  EXPECT_EQ(RawSqlite(journal_).Run("SELECT ID FROM o"), "1 ");
}

}  // namespace
}  // namespace orvane
