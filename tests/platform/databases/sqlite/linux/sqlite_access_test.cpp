// Opening files that another process works on, or that are protected.

#include <sys/stat.h>

#include <chrono>

#include "fakes/child_process.h"
#include "platform/databases/host_databases.h"
#include "platform/databases/sqlite/sqlite_test_support.h"

namespace orvane {
namespace {

constexpr const char* kInUse = "wird bereits von einem anderen Programm verwendet";
constexpr const char* kReads = "BEGIN; SELECT * FROM o";
constexpr useconds_t kForLong = 100'000'000;

class SqliteAccess : public SqliteFixture {
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

// A reader is in nobody's way but of one who needs the file for himself, and then it is.
TEST_F(SqliteAccess, SaysWhenAnotherProcessLocksTheFile) {
  const std::tuple<const char*, DbMode, const char*> kCases[] = {
      {"BEGIN EXCLUSIVE", DbMode::kUnknown, kInUse},
      {"BEGIN EXCLUSIVE", DbMode::kWrite, kInUse},
      {"BEGIN IMMEDIATE", DbMode::kUnknown, "no failure"},
      {"BEGIN IMMEDIATE", DbMode::kWrite, kInUse},
      {kReads, DbMode::kUnknown, "no failure"},
      {kReads, DbMode::kWrite, kInUse}};
  for (const auto& [sql, mode, answer] : kCases) {
    const auto other = Other(sql, kForLong);
    const std::string failure = FailureOf([&, wanted = mode] {
      Open(journal_, wanted, std::chrono::milliseconds{200})->Execute("SELECT Max(ID) FROM o");
    });
    EXPECT_TRUE(Contains(failure, answer)) << sql << static_cast<int>(mode) << failure;
  }
  EXPECT_EQ(FailureOf([this] { Write(InsertCall(1)); }), "no failure");
}

TEST_F(SqliteAccess, WaitsToHaveTheFileForItself) {
  for (const char* const sql : {"BEGIN IMMEDIATE", kReads}) {
    const auto other = Other(sql, 1'300'000);
    EXPECT_EQ(FailureOf([this] { Open(journal_); }), "no failure") << sql;
  }
}

// Looking what kind of file it is, or failing to open it, must not let others in.
TEST_F(SqliteAccess, KeepsOthersOutWhateverElseTheProgramDoesWithTheFile) {
  ChildProcess other([this](const ChildProcess::Say& say) {
    while (!std::filesystem::exists(folder_ / "go")) usleep(1000);
    RawSqlite(journal_).Run("SELECT count(*) FROM o");
    say("read");
    return 0;
  });
  const auto writer = Open(journal_);
  HostDatabases databases{{}};
  const auto reader = databases.NewConnection();
  reader->SetProvider("Microsoft.Jet.OLEDB.4.0");
  reader->SetProperty("Data Source", journal_.string());
  EXPECT_TRUE(Contains(FailureOf([&] { reader->Open(); }), kInUse));
  folder_.Write("go", "");
  EXPECT_EQ(other.Line(), "database is locked");
}

TEST_F(SqliteAccess, TwoWritersLoseNothingAndShareNoNumber) {
  const auto write = [this](const ChildProcess::Say& say) {
    for (int call = 0; call < 200; ++call) {
      const auto connection = Open(journal_);
      const DbValue last = connection->Execute("SELECT Max(ID) FROM o")->Field(0);
      const auto* const id = std::get_if<std::int64_t>(&last);
      connection->Execute(InsertCall(id == nullptr ? 1 : static_cast<int>(*id) + 1));
      connection->Commit();
    }
    say("all written");
    return 0;
  };
  ChildProcess one(write), two(write);
  EXPECT_EQ(one.Line(), "all written");
  EXPECT_EQ(two.Line(), "all written");
  EXPECT_EQ(RawSqlite(journal_).Run("SELECT count(*)||','||min(ID)||','||max(ID) FROM o"),
            "400,1,400 ");
}

// Permissions do not bind the system's administrator, so the child becomes an ordinary user.
TEST_F(SqliteAccess, SaysWhenTheFileIsProtected) {
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
    ChildProcess child([&, wanted = mode](const ChildProcess::Say& say) {
      if (geteuid() == 0 && setuid(kNobody) != 0) return 1;
      Open(journal_, wanted)->Execute("SELECT Max(ID) FROM o");
      say("opened");
      return 0;
    });
    const std::string answer = child.Line();
    chmod(folder_.Path().c_str(), 0755);
    EXPECT_TRUE(Contains(answer, expected)) << answer;
  }
}

}  // namespace
}  // namespace orvane
