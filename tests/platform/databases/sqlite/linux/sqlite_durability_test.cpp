// Writes that are cut off: by a full disk, by the end of the process, by damage. The file stays
// whole, and what was reported as written is in it.

#include <sys/resource.h>

#include "fakes/child_process.h"
#include "platform/databases/sqlite/sqlite_test_support.h"

namespace orvane {
namespace {

constexpr std::size_t kPageBytes = 4096;
constexpr const char* kDiskError = "Fehler beim Lesen oder Schreiben";

// A file of this process that would grow beyond the limit fails like one on a full disk, or the
// process is killed.
void LimitFileSize(rlim_t bytes, bool kills = false) {
  if (!kills) signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{bytes, bytes};
  setrlimit(RLIMIT_FSIZE, &limit);
}

class SqliteDurability : public SqliteFile {
 protected:
  void Fill(int calls, const std::string& table = "o") {
    RawSqlite(journal_).Run(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<" +
        std::to_string(calls) + ") INSERT INTO " + table +
        " (ID,Zeit,Firma) SELECT i, 45000+i, printf('%090d',i) FROM n");
  }
  static std::string ForFile(const std::filesystem::path& file) {
    return "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + file.string() +
           ";Jet OLEDB:Database Password=vnar";
  }
  static std::int64_t Whole(DatabaseConnection& connection, const std::string& sql) {
    return std::get<std::int64_t>(connection.Execute(sql)->Field(0));
  }
  // Checks the file and gives the answer.
  static std::string Ask(const std::filesystem::path& file, const std::string& sql) {
    EXPECT_EQ(RawSqlite(file).Run("PRAGMA integrity_check"), "ok ");
    return RawSqlite(file).Run(sql);
  }
};

TEST_F(SqliteDurability, AFullDiskLosesNothingThatWasWritten) {
  ChildProcess child([this](const ChildProcess::Say& say) {
    LimitFileSize(60'000);
    const auto connection = Open(journal_);
    int id = 1;
    say(FailureOf([&] {
      for (; id < 10'000; ++id) connection->Execute(InsertCall(id));
    }));
    say(std::to_string(id - 1));
    say(std::to_string(Whole(*connection, "SELECT Count(ID) FROM o")));
    return 0;
  });
  EXPECT_TRUE(Contains(child.Line(), kDiskError));
  const std::string last = child.Line();
  EXPECT_EQ(child.Line(), last);
  child.Wait();
  ASSERT_GT(std::stoi(last), 50);
  EXPECT_EQ(Ask(journal_, "SELECT count(*) FROM o WHERE ID BETWEEN 1 AND " + last), last + " ");
  EXPECT_NO_THROW(Open(journal_)->Execute(InsertCall(20'000)));
}

// The limit strikes while the changed pages are being written: the old ones are over, the new ones
// are not there yet, and the process is gone.
TEST_F(SqliteDurability, AWriterKilledBetweenTwoPagesChangedNothing) {
  Fill(100, "o");
  Fill(2000, "i");
  const auto size = std::filesystem::file_size(journal_);
  ChildProcess writer([this, size](const ChildProcess::Say& say) {
    const auto connection = Open(journal_);
    LimitFileSize(size, true);
    say("writing");
    connection->Execute("UPDATE o SET Person='" + std::string(2000, 'x') + "'");
    say("written");
    return 0;
  });
  ASSERT_EQ(writer.Line() + writer.Line(), "writing");
  writer.Wait();
  ASSERT_EQ(Names(), "TelList.fdb TelList.fdb-journal ");
  EXPECT_TRUE(Open(journal_)->Execute("SELECT ID FROM o WHERE NOT Person IS NULL")->AtEnd());
  EXPECT_EQ(Names(), "TelList.fdb ");
  EXPECT_EQ(Ask(journal_, "SELECT count(*) FROM o WHERE Firma IS NOT NULL"), "100 ");
}

TEST_F(SqliteDurability, CompactsIntoACopy) {
  constexpr const char* kContent = "SELECT count(*)||','||min(ID)||','||max(Firma) FROM o";
  Fill(5000);
  RawSqlite(journal_).Run("DELETE FROM o WHERE ID<=4400");
  const std::string before = ReadFile(journal_);
  const auto copy = folder_ / "tTelList";
  SqliteServices().CompactDatabase(ForFile(journal_), ForFile(copy));
  EXPECT_EQ(Names(), "TelList.fdb tTelList ");
  EXPECT_EQ(ReadFile(journal_), before);
  EXPECT_LT(std::filesystem::file_size(copy), before.size() / 2);
  EXPECT_EQ(Ask(copy, kContent), RawSqlite(journal_).Run(kContent));
  EXPECT_NO_THROW(Open(copy)->Execute(InsertCall(9999)));
}

TEST_F(SqliteDurability, AFailedCompactionLeavesNothingBehind) {
  Fill(2000);
  const std::string before = ReadFile(journal_);
  const std::string source = ForFile(journal_), target = ForFile(folder_ / "t");
  folder_.Write("taken", "mine");
  folder_.Write("noise", std::string(5000, 'n'));
  std::string damaged = before;
  folder_.Write("damaged", damaged.replace(20 * kPageBytes, 8 * kPageBytes, 8 * kPageBytes, 'x'));
  const auto compact = [](const std::string& from, const std::string& to) {
    return FailureOf([&] { SqliteServices().CompactDatabase(from, to); });
  };
  const std::tuple<std::string, std::string, const char*> kCases[] = {
      {source, ForFile(folder_ / "taken"), "ist bereits vorhanden"},
      {source, source, "ist bereits vorhanden"},
      {ForFile(folder_ / "none"), target, "konnte nicht gefunden werden"},
      {ForFile(folder_ / "noise"), target, "Nicht erkennbares"},
      {ForFile(folder_ / "damaged"), target, "ist beschädigt"},
      {source, ForFile(folder_ / "none" / "t"), "TelList.fdb'"},
      {source, "x", "Verbindungszeichenfolge"}};
  for (const auto& [from, to, failure] : kCases) {
    EXPECT_TRUE(Contains(compact(from, to), failure)) << failure;
  }
  ChildProcess fullDisk([&](const ChildProcess::Say& say) {
    LimitFileSize(50'000);
    say(compact(source, target));
    return 0;
  });
  EXPECT_TRUE(Contains(fullDisk.Line(), kDiskError));
  EXPECT_EQ(Names(), "TelList.fdb damaged noise taken ");
  EXPECT_EQ(ReadFile(journal_), before);
  EXPECT_EQ(ReadFile(folder_ / "taken"), "mine");
}

}  // namespace
}  // namespace orvane
