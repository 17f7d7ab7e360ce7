// Writes that are cut off: by a full disk, by the end of the process, by damage. The file stays
// whole, and what was reported as written is in it.

#include <signal.h>
#include <sys/resource.h>

#include "fakes/child_process.h"
#include "journal_schema.h"
#include "sqlite_test_support.h"

namespace orvane {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kPageBytes = 4096;
constexpr const char* kCompactSource = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=";

std::string ForFile(const fs::path& file) {
  return kCompactSource + file.string();
}

// A file of this process that would grow beyond the limit fails like one on a full disk.
void LimitFileSize(rlim_t bytes) {
  signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{bytes, bytes};
  setrlimit(RLIMIT_FSIZE, &limit);
}

class SqliteDurability : public testing::Test {
 protected:
  SqliteDurability() { CreateJournalFile(journal_); }

  void Fill(int calls, const std::string& table = "o") {
    const std::string count = std::to_string(calls);
    RawSqlite(journal_).Run(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<" + count +
        ") INSERT INTO " + table + " (ID,Zeit,Firma) SELECT i, 45000+i, printf('%090d',i) FROM n");
  }

  TemporaryFolder folder_;
  fs::path journal_ = folder_ / "TelList.fdb";
};

TEST_F(SqliteDurability, AFullDiskLosesNothingThatWasWritten) {
  std::string last;
  {
    ChildProcess child([this](const ChildProcess::Say& say) {
      LimitFileSize(60'000);
      const auto connection = OpenFile(journal_);
      int id = 1;
      try {
        for (; id < 10'000; ++id) connection->Execute(InsertCall(id));
      } catch (const DatabaseError& error) {
        say(std::to_string(error.Number()));
        say(std::to_string(id - 1));
        const auto count = connection->Execute("SELECT Count(ID) FROM o")->Field(0);
        say(std::to_string(std::get<std::int64_t>(count)));
      }
    });
    EXPECT_EQ(child.Line(), std::to_string(kDbErrorFailed));
    last = child.Line();
    EXPECT_EQ(child.Line(), last);
  }
  ASSERT_GT(std::stoi(last), 50);
  RawSqlite raw(journal_);
  EXPECT_EQ(raw.Run("PRAGMA integrity_check"), "ok ");
  EXPECT_EQ(raw.Run("SELECT count(*) FROM o WHERE ID BETWEEN 1 AND " + last), last + " ");
  EXPECT_NO_THROW(OpenFile(journal_)->Execute(InsertCall(20'000)));
}

TEST_F(SqliteDurability, AKilledWriterLeavesTheFileWhole) {
  int written = 0;
  for (int round = 1; round <= 4; ++round) {
    ChildProcess writer([this, written](const ChildProcess::Say& say) {
      for (int id = written + 1;; ++id) {
        const auto connection = OpenFile(journal_);
        connection->Execute(InsertCall(id));
        say(std::to_string(id));
        connection->Execute("DELETE FROM o WHERE ID<" + std::to_string(id - 19));
      }
    });
    for (int i = 0; i < 5 + round; ++i) written = std::stoi(writer.Line());
    writer.Kill();

    {
      const auto newest = OpenFile(journal_)->Execute("SELECT Max(ID) FROM o")->Field(0);
      EXPECT_GE(std::get<std::int64_t>(newest), written);
      written = static_cast<int>(std::get<std::int64_t>(newest));
    }
    RawSqlite raw(journal_);
    EXPECT_EQ(raw.Run("PRAGMA integrity_check"), "ok ");
    const std::string kept = raw.Run("SELECT count(*) FROM o");
    EXPECT_TRUE(kept == std::to_string(std::min(written, 20)) + " " || kept == "21 ") << kept;
  }
}

// The limit strikes while the changed pages are being written: the old ones are over, the new ones
// are not there yet, and the process is gone.
TEST_F(SqliteDurability, AWriterKilledBetweenTwoPagesChangedNothing) {
  Fill(100, "o");
  Fill(2000, "i");
  const auto size = fs::file_size(journal_);
  {
    ChildProcess writer([this, size](const ChildProcess::Say& say) {
      const auto connection = OpenFile(journal_);
      const rlimit limit{size, size};
      setrlimit(RLIMIT_FSIZE, &limit);
      say("writing");
      connection->Execute("UPDATE o SET Person='" + std::string(2000, 'x') + "'");
      say("written");
    });
    ASSERT_EQ(writer.Line(), "writing");
    ASSERT_EQ(writer.Line(), "");
  }
  ASSERT_EQ(Names(folder_), "TelList.fdb TelList.fdb-journal ");
  EXPECT_TRUE(OpenFile(journal_)->Execute("SELECT ID FROM o WHERE NOT Person IS NULL")->AtEnd());
  EXPECT_EQ(Names(folder_), "TelList.fdb ");
  RawSqlite raw(journal_);
  EXPECT_EQ(raw.Run("PRAGMA integrity_check"), "ok ");
  EXPECT_EQ(raw.Run("SELECT count(*) FROM o WHERE Firma IS NOT NULL"), "100 ");
}

TEST_F(SqliteDurability, ReportsDamageInsideTheFile) {
  Fill(600);
  const std::string whole = ReadFile(journal_);
  std::string damaged = whole.substr(0, 3 * kPageBytes);
  damaged.append(whole.size() - damaged.size(), '\xAA');
  folder_.Write("TelList.fdb", damaged);
  const auto connection = OpenFile(journal_, DbMode::kUnknown);
  EXPECT_TRUE(
      Contains(FailureOf([&] { connection->Execute("SELECT Firma FROM o"); }), "ist beschädigt"));
  connection->Close();
  EXPECT_EQ(ReadFile(journal_), damaged);
}

TEST_F(SqliteDurability, CompactsIntoACopy) {
  Fill(5000);
  RawSqlite(journal_).Run("DELETE FROM o WHERE ID<=4400");
  const auto size = fs::file_size(journal_);
  const std::string before = ReadFile(journal_);
  SqliteServices().CompactDatabase(
      ForFile(journal_) + ";Jet OLEDB:Database Password=vnar",
      ForFile(folder_ / "tTelList") + ";Jet OLEDB:Database Password=vnar");
  EXPECT_EQ(Names(folder_), "TelList.fdb tTelList ");
  EXPECT_EQ(ReadFile(journal_), before);
  EXPECT_LT(fs::file_size(folder_ / "tTelList"), size / 2);
  RawSqlite copy(folder_ / "tTelList");
  EXPECT_EQ(copy.Run("PRAGMA integrity_check"), "ok ");
  EXPECT_EQ(copy.Run("SELECT count(*)||','||min(ID)||','||max(Firma) FROM o"),
            RawSqlite(journal_).Run("SELECT count(*)||','||min(ID)||','||max(Firma) FROM o"));
  EXPECT_NO_THROW(OpenFile(folder_ / "tTelList")->Execute(InsertCall(9999)));
}

TEST_F(SqliteDurability, AFailedCompactionLeavesNothingBehind) {
  Fill(2000);
  const std::string before = ReadFile(journal_);
  folder_.Write("taken", "mine");
  folder_.Write("noise", std::string(5000, 'n'));
  std::string damaged = before;
  damaged.replace(20 * kPageBytes, 8 * kPageBytes, 8 * kPageBytes, '\xAA');
  folder_.Write("damaged", damaged);
  struct Case {
    std::string source;
    std::string destination;
    const char* failure;
  };
  const Case cases[] = {
      {ForFile(journal_), ForFile(folder_ / "taken"), "ist bereits vorhanden"},
      {ForFile(journal_), ForFile(journal_), "ist bereits vorhanden"},
      {ForFile(folder_ / "none"), ForFile(folder_ / "t"), "konnte nicht gefunden werden"},
      {ForFile(folder_ / "noise"), ForFile(folder_ / "t"), "Nicht erkennbares"},
      {ForFile(folder_ / "damaged"), ForFile(folder_ / "t"), "ist beschädigt"},
      {ForFile(journal_), ForFile(folder_ / "none" / "t"), "TelList.fdb'"},
      {ForFile(journal_), "x", "Verbindungszeichenfolge"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.source + " " + c.destination);
    const std::string failure =
        FailureOf([&] { SqliteServices().CompactDatabase(c.source, c.destination); });
    EXPECT_TRUE(Contains(failure, c.failure)) << failure;
  }
  ChildProcess fullDisk([this](const ChildProcess::Say& say) {
    LimitFileSize(50'000);
    say(FailureOf(
        [this] { SqliteServices().CompactDatabase(ForFile(journal_), ForFile(folder_ / "t")); }));
  });
  EXPECT_TRUE(Contains(fullDisk.Line(), "Fehler beim Lesen oder Schreiben"));
  EXPECT_EQ(Names(folder_), "TelList.fdb damaged noise taken ");
  EXPECT_EQ(ReadFile(journal_), before);
  EXPECT_EQ(ReadFile(folder_ / "taken"), "mine");
}

}  // namespace
}  // namespace orvane
