// Writes that are cut off: by a full disk or by the end of the process. The file stays whole, and
// what was committed is in it.

#include "fakes/child_process.h"
#include "platform/databases/sqlite/linux/filled_journal.h"

namespace orvane {
namespace {

// Changes more pages than SQLite keeps in memory, so the file is written to before Commit.
const std::string kMuch = "UPDATE o SET Person='" + std::string(2000, 'x') + "'";
constexpr int kManyCalls = 2000;

using SqliteDurability = FilledJournal;

TEST_F(SqliteDurability, AFullDiskLosesNothingThatWasCommitted) {
  ChildProcess child([this](const ChildProcess::Say& say) {
    LimitFileSize(60'000);
    int id = 1;
    say(FailureOf([&] {
      for (; id < 10'000; ++id) Write(InsertCall(id));
    }));
    say(std::to_string(id - 1));
    const auto connection = Open(journal_);
    for (int more = 0; more < 1000; ++more) connection->Execute(InsertCall(++id));
    for (int time = 0; time < 2; ++time) say(FailureOf([&] { connection->Commit(); }));
    return 0;
  });
  EXPECT_TRUE(Contains(child.Line(), kDiskError));
  const std::string last = child.Line();
  for (int time = 0; time < 2; ++time) EXPECT_TRUE(Contains(child.Line(), kDiskError));
  child.Wait();
  ASSERT_GT(std::stoi(last), 50);
  EXPECT_EQ(Ask(journal_, "SELECT count(*)||','||max(ID) FROM o"), last + "," + last + " ");
  EXPECT_EQ(FailureOf([this] { Write(InsertCall(20'000)); }), "no failure");
}

// The engine drops the transaction by itself, and what follows must not be written without it.
TEST_F(SqliteDurability, AFullDiskInTheMiddleTakesTheWholeTransaction) {
  Fill(kManyCalls);
  ChildProcess child(
      [this, size = std::filesystem::file_size(journal_)](const ChildProcess::Say& say) {
        LimitFileSize(size + 100'000);
        const auto connection = Open(journal_);
        connection->Execute(InsertCall(10'001));
        for (const std::string& sql : {kMuch, InsertCall(10'002)}) {
          say(FailureOf([&] { connection->Execute(sql); }));
        }
        say(FailureOf([&] { connection->Commit(); }));
        return 0;
      });
  for (int time = 0; time < 3; ++time) EXPECT_TRUE(Contains(child.Line(), kDiskError)) << time;
  child.Wait();
  EXPECT_EQ(Ask(journal_, "SELECT count(*)||','||max(ID)||','||count(Person) FROM o"),
            "2000,2000,0 ");
  EXPECT_EQ(Names(), "TelList.fdb ");
}

TEST_F(SqliteDurability, DamageThatIsFoundTakesTheWholeTransaction) {
  Fill(kManyCalls, "i");
  folder_.Write("TelList.fdb", Damaged(ReadFile(journal_)));
  const auto connection = Open(journal_);
  connection->Execute(InsertCall(1));
  // The first rows can be read.
  for (const std::string& sql : {std::string("SELECT Firma FROM i"), InsertCall(2)}) {
    EXPECT_TRUE(Contains(FailureOf([&] { connection->Execute(sql); }), "ist beschädigt")) << sql;
  }
  EXPECT_TRUE(Contains(FailureOf([&] { connection->Commit(); }), "ist beschädigt"));
  connection->Close();
  EXPECT_EQ(RawSqlite(journal_).Run("SELECT count(*) FROM o"), "0 ");
}

// The old pages are over, not all new ones are there yet, and the process is gone.
TEST_F(SqliteDurability, AWriterKilledBeforeItHasCommittedChangedNothing) {
  Fill(kManyCalls);
  Fill(kManyCalls, "i");
  const auto size = std::filesystem::file_size(journal_);
  const auto writer = [&](const std::string& sql, bool inCommit) {
    return std::make_unique<ChildProcess>(
        [this, sql, inCommit, size](const ChildProcess::Say& say) {
          const auto connection = Open(journal_);
          connection->Execute(sql);
          if (inCommit) LimitFileSize(size, true);
          say("executed");
          if (inCommit) connection->Commit();
          if (!inCommit) pause();
          say("committed");
          return 0;
        });
  };
  const std::pair<std::string, bool> kCases[] = {
      {kMuch, false}, {"UPDATE o SET Person='" + std::string(2000, 'x') + "' WHERE ID<100", true}};
  for (const auto& [sql, inCommit] : kCases) {
    const auto child = writer(sql, inCommit);
    EXPECT_EQ(child->Line(), "executed");
    if (inCommit) {
      EXPECT_EQ(child->Line(), "");
    }
    child->Kill();
    EXPECT_EQ(Names(), "TelList.fdb TelList.fdb-journal ");
    EXPECT_TRUE(Open(journal_)->Execute("SELECT ID FROM o WHERE NOT Person IS NULL")->AtEnd());
    EXPECT_EQ(Names(), "TelList.fdb ");
    EXPECT_EQ(Ask(journal_, "SELECT count(*) FROM o WHERE Firma IS NOT NULL"), "2000 ");
  }
}

}  // namespace
}  // namespace orvane
