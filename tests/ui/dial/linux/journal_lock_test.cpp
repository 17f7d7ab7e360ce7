// The call history while another program holds the journal.
#include "fakes/child_process.h"
#include "platform/databases/sqlite/sqlite_test_support.h"
#include "ui/dial/dial_window_history_fixture.h"

namespace orvane {
namespace {

TEST_F(DialWindowHistory, IsReadPastAnotherProgramThatWrites) {
  const std::string all = "Heute:  0641 1 0409; Gestern: 217; Älter: 0221471";
  const std::string withNumber = "Heute: 0641 1 0409; Gestern: 217; Älter: 0221471";
  ASSERT_EQ(Shown(), all);
  const std::tuple<const char*, std::string, int> kLocks[] = {
      {"BEGIN IMMEDIATE; INSERT INTO o (ID,Ext,Zeit,Nr) VALUES (9,0,45385.9,'1')", withNumber, 1},
      {"BEGIN EXCLUSIVE",
       "!Die Datei '" + state.host.userPath +
           "res\\TelList.fdb' konnte nicht "
           "verwendet werden. Sie wird bereits von einem anderen Programm verwendet.",
       1}};
  for (const auto& [lock, shown, opens] : kLocks) {
    SCOPED_TRACE(lock);
    {
      const ChildProcess other([&, file = Journal()](const auto& say) {
        RawSqlite held(file);
        held.Run(lock);
        say("locked");
        pause();
        return 0;
      });
      ASSERT_EQ(other.Line(), "locked");
      databases.opens = 0;
      EXPECT_EQ(ShownAgain(), shown);
      EXPECT_EQ(databases.opens, opens) << "no attempt that only waits";
    }
    // What the other program left unfinished when it died does not count.
    EXPECT_EQ(ShownAgain(), all);
  }
}

}  // namespace
}  // namespace orvane
