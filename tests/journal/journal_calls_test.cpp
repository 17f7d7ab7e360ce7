#include "journal/journal_entry.h"

#include <algorithm>

#include "fakes/program_fixture.h"
#include "journal/tel_list.h"
#include "platform/databases/sqlite/sqlite_test_support.h"

namespace orvane {
namespace {

constexpr const char* kQuery = "SELECT DISTINCT Zeit,Ext,Nr,Firma,Ort,Person FROM o";

class JournalCallsTest : public JournalFixture {
 protected:
  std::string Calls(const std::string& query = kQuery) {
    std::string text;
    journal.Read(state.host.userPath, query, [&text](const std::vector<JournalCall>& calls) {
      for (const JournalCall& c : calls) {
        text += (c.time ? std::to_string(*c.time) : "-") + (c.external ? "|ext|" : "|int|") +
                c.number + "|" + c.company + "|" + c.place + "|" + c.person + "\n";
      }
    });
    return text;
  }
  std::string Insert() {
    NewCall begun;
    begun.startText = "04/03/2024 09:00:00";
    journal.Insert(state.host.userPath, begun);
    return RawSqlite(UserFile("TelList.fdb")).Run("SELECT count(*) FROM o");
  }
};

TEST_F(JournalCallsTest, ReadsRowsWhateverTheyHold) {
  RawSqlite(UserFile("TelList.fdb"))
      .Run(
          "INSERT INTO o (ID,Ext,Zeit,Firma,Ort,Person,Nr) VALUES"
          " (5,-1,45385.3750000001,'Groß & Söhne','Köln','Meier','0301'),"
          " (4,0,45384.5,'','',NULL,'217'), (3,NULL,NULL,NULL,NULL,NULL,NULL),"
          " (2,9,1e300,NULL,NULL,NULL,NULL), (1,-1,-1e9,'x','x','x','x')");
  EXPECT_EQ(Calls("SELECT Zeit,Ext,Nr,Firma,Ort,Person FROM o ORDER BY ID DESC"),
            "45385.375000|ext|0301|Groß & Söhne|Köln|Meier\n45384.500000|int|217|||\n"
            "-|int||||\n-|ext||||\n-|ext|x|x|x|x\n");
  EXPECT_EQ(Calls("SELECT DISTINCT TOP 1 Zeit,Ext,Nr,Firma,Ort,Person FROM o WHERE Ext<>9"),
            "45385.375000|ext|0301|Groß & Söhne|Köln|Meier\n")
      << "the newest";
  EXPECT_EQ(Calls("SELECT Zeit,Ext,Nr,Firma,Ort FROM o"), "") << "a missing field ends the list";
  EXPECT_EQ(Calls("SELECT nonsense"), "");
  EXPECT_TRUE(prompts.boxes.empty());
}

TEST_F(JournalCallsTest, ReadsDurationsBesideTheRows) {
  RawSqlite(UserFile("TelList.fdb"))
      .Run(
          "INSERT INTO i (ID,Zeit,Nr,Dauer) VALUES (3,45385.5,'217','1 Min. 5 Sek.'),"
          " (2,45384.5,NULL,'Besetzt'), (1,NULL,'0301',NULL)");
  std::string text;
  journal.ReadDurations(state.host.userPath, CallDirection::kIncoming, [&text](const auto& calls) {
    for (const JournalDuration& c : calls) {
      text += (c.time ? std::to_string(*c.time) : "-") + "|" + c.number + "|" +
              (c.seconds ? std::to_string(*c.seconds) : "-") + "\n";
    }
  });
  EXPECT_EQ(text, "45385.500000|217|65\n45384.500000||-\n-|0301|-\n");
}

TEST_F(JournalCallsTest, ReadsWhileAnotherProgramWrites) {
  Insert();
  const std::string calls = Calls();
  RawSqlite other(UserFile("TelList.fdb"));
  other.Run("BEGIN IMMEDIATE");
  EXPECT_EQ(Calls(), calls);
  EXPECT_TRUE(prompts.boxes.empty());
  other.Run("ROLLBACK");
  // The next call must not find the journal open for reading only.
  EXPECT_EQ(Insert(), "2 ");
}

TEST_F(JournalCallsTest, ShowsWhatItReadBeforeADamagedPage) {
  const auto file = UserFile("TelList.fdb");
  // In the order in which the rows lie, so that the last pages of the file are read last.
  RawSqlite(file).Run(
      "WITH RECURSIVE n(i) AS (SELECT 600 UNION ALL SELECT i-1 FROM n WHERE i>1)"
      " INSERT INTO o (ID,Ext,Zeit,Nr,Firma) SELECT i,0,i,'217','Rheinkontor Spedition' FROM n");
  std::string content = ReadFile(file);
  content.replace(content.size() * 4 / 5, std::string::npos,
                  std::string(content.size() - content.size() * 4 / 5, 'x'));
  WriteFile(file, content);
  const std::string calls = Calls("SELECT Zeit,Ext,Nr,Firma,Ort,Person FROM o");
  const auto rows = std::count(calls.begin(), calls.end(), '\n');
  EXPECT_GT(rows, 100);
  EXPECT_LT(rows, 600);
}

}  // namespace
}  // namespace orvane
