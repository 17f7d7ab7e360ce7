// Opening files that another process works on, or that are protected.

#include <sys/stat.h>

#include "fakes/child_process.h"
#include "platform/databases/sqlite/sqlite_test_support.h"

namespace orvane {
namespace {

constexpr const char* kInUse = "wird bereits von einem anderen Programm verwendet";

class SqliteAccess : public SqliteFile {
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

TEST_F(SqliteAccess, SaysWhenAnotherProcessLocksTheFile) {
  auto other = Other("BEGIN EXCLUSIVE", kForLong);
  for (const DbMode mode : {DbMode::kUnknown, DbMode::kWrite}) {
    EXPECT_TRUE(Contains(FailureOf([&] { Open(journal_, mode); }), kInUse));
  }
  other.reset();
  EXPECT_NO_THROW(Open(journal_)->Execute(InsertCall(1)));
}

// Some rounds, because a busy machine may hold up the other process for longer than the wait.
TEST_F(SqliteAccess, WaitsForAShortLock) {
  bool opened = false;
  for (int round = 0; round < 10 && !opened; ++round) {
    const auto other = Other("BEGIN IMMEDIATE", 200'000);
    opened = FailureOf([this] { Open(journal_); }) == "no failure";
  }
  EXPECT_TRUE(opened);
}

// A reader lets the file be opened, but a statement cannot be completed: it must fail as a whole.
TEST_F(SqliteAccess, FailsWhileAnotherProcessReadsOn) {
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

}  // namespace
}  // namespace orvane
