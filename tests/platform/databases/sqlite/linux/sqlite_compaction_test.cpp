// Making the file smaller while others use it, and whatever can get in between.

#include <sys/stat.h>

#include "fakes/child_process.h"
#include "platform/databases/sqlite/linux/filled_journal.h"

namespace orvane {
namespace {

constexpr const char* kContent = "SELECT count(*)||','||min(ID)||','||max(Firma) FROM o";

class SqliteCompaction : public FilledJournal {
 protected:
  static std::string ForFile(const std::filesystem::path& file) {
    return "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + file.string() +
           ";Jet OLEDB:Database Password=vnar";
  }
  static std::string Compact(const std::string& source, const std::string& backup,
                             std::chrono::milliseconds lockWait = std::chrono::milliseconds{200},
                             bool ofStorage = true) {
    return FailureOf([&] { SqliteServices(lockWait).CompactDatabase(source, backup); },
                     kDbErrorFailed, ofStorage);
  }

  const std::filesystem::path backup_ = folder_ / "TelList.OLD";
};

TEST_F(SqliteCompaction, KeepsTheFileAndACopyOfWhatItWas) {
  Fill(5000);
  RawSqlite(journal_).Run(
      "DELETE FROM o WHERE ID<=4400;"
      "CREATE TABLE blobs (a BLOB); INSERT INTO blobs VALUES (zeroblob(2000000))");
  const std::string content = RawSqlite(journal_).Run(kContent);
  const auto size = std::filesystem::file_size(journal_);
  chmod(journal_.c_str(), 0640);
  std::filesystem::create_hard_link(journal_, folder_ / "hard");
  std::filesystem::create_symlink(journal_, folder_ / "soft");
  struct stat before {
  }, after{}, copied{};
  stat(journal_.c_str(), &before);
  folder_.Write("TelList.OLD", "older");
  folder_.Write("TelList.OLD.neu", "left behind by one that was killed");

  const std::string folder = folder_.Path().string() + "\\";
  EXPECT_EQ(Compact("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + folder + "soft",
                    folder + "telList.old"),
            "no failure");
  stat(journal_.c_str(), &after);
  stat(backup_.c_str(), &copied);
  EXPECT_EQ(after.st_ino, before.st_ino);
  EXPECT_EQ(after.st_mode, before.st_mode);
  EXPECT_EQ(after.st_nlink, before.st_nlink);
  EXPECT_EQ(copied.st_mode, before.st_mode);
  EXPECT_TRUE(std::filesystem::is_symlink(folder_ / "soft"));
  EXPECT_EQ(Names(), "TelList.OLD TelList.fdb hard soft ");
  EXPECT_EQ(std::filesystem::file_size(backup_), size);
  EXPECT_LT(std::filesystem::file_size(journal_), size - 45'000);
  for (const auto& file : {journal_, backup_}) EXPECT_EQ(Ask(file, kContent), content);
  EXPECT_EQ(FailureOf([this] { Write(InsertCall(9999)); }), "no failure");
}

TEST_F(SqliteCompaction, LeavesEverythingWhenItFails) {
  Fill(2000);
  RawSqlite(journal_).Run("VACUUM");  // so that the next one has to write every page
  const std::string before = ReadFile(journal_);
  const std::string source = ForFile(journal_), backup = folder_.Write("TelList.OLD", "mine");
  folder_.Write("noise", std::string(5000, 'n'));
  folder_.Write("damaged", Damaged(before));
  std::filesystem::create_directories(folder_ / "taken" / "x");
  const std::tuple<std::string, std::string, const char*, bool> kCases[] = {
      {ForFile(folder_ / "none"), backup, "konnte nicht gefunden werden", true},
      {ForFile(folder_ / "noise"), backup, "Nicht erkennbares", true},
      {ForFile(folder_ / "damaged"), backup, "damaged' ist beschädigt", true},
      {source, folder_ / "none" / "x", "none/x'", true},
      {source, folder_ / "taken", "taken'", true},
      {source, journal_, "ist bereits vorhanden", false},
      {"x", backup, "Verbindungszeichenfolge", false}};
  for (const auto& [from, to, failure, ofStorage] : kCases) {
    const std::string answer = Compact(from, to, kDatabaseLockWait, ofStorage);
    EXPECT_TRUE(Contains(answer, failure)) << answer;
  }
  {
    RawSqlite reader(journal_);
    reader.Run("BEGIN; SELECT * FROM o");
    EXPECT_TRUE(Contains(Compact(source, backup), "von einem anderen Programm verwendet"));
  }
  // The disk has room for nothing, and for the copy but not for what VACUUM needs besides.
  for (const auto& [room, kept] : {std::pair{std::size_t{50'000}, std::string("mine")},
                                   std::pair{before.size(), std::string()}}) {
    ChildProcess fullDisk([&, limit = room](const ChildProcess::Say& say) {
      LimitFileSize(limit);
      say(Compact(source, backup));
      return 0;
    });
    EXPECT_TRUE(Contains(fullDisk.Line(), kDiskError)) << room;
    fullDisk.Wait();
    EXPECT_EQ(Names(), "TelList.OLD TelList.fdb damaged noise taken ");
    EXPECT_TRUE(ReadFile(journal_) == before);
    if (!kept.empty()) {
      EXPECT_TRUE(ReadFile(backup) == kept);
    }
  }
  EXPECT_EQ(Ask(backup, kContent), Ask(journal_, kContent));
}

TEST_F(SqliteCompaction, TakesNothingFromAProcessThatWritesAllTheTime) {
  Fill(2000, "i");
  ChildProcess other([this](const ChildProcess::Say& say) {
    RawSqlite journal(journal_);
    journal.Run("PRAGMA busy_timeout=10000");
    int calls = 0;
    while (!std::filesystem::exists(folder_ / "stop")) {
      journal.Run("BEGIN IMMEDIATE; DELETE FROM i WHERE ID=" + std::to_string(++calls));
      journal.Run("INSERT INTO o (ID,Firma) SELECT coalesce(max(ID),0)+1,'x' FROM o; COMMIT");
      if (calls % 10 != 0) continue;
      const std::string found = journal.Run("PRAGMA integrity_check");
      if (found != "ok ") say(found);
    }
    say(std::to_string(calls));
    return 0;
  });
  for (int time = 0; time < 10; ++time) {
    EXPECT_EQ(Compact(ForFile(journal_), backup_, kWriteLockWait), "no failure");
    Ask(backup_, kContent);
  }
  folder_.Write("stop", "");
  const std::string calls = other.Line();
  EXPECT_EQ(Ask(journal_, "SELECT count(*)||','||max(ID) FROM o"), calls + "," + calls + " ");
}

}  // namespace
}  // namespace orvane
