// A journal of the host's own system goes on being the journal here.

#include <gtest/gtest.h>

#include <cstdlib>

#include "fakes/temporary_folder.h"
#include "platform/databases/jet/linux/jet_test_support.h"

namespace orvane {
namespace {

class JetConverter : public testing::Test {
 protected:
  JetConverter() {
    std::filesystem::copy_file(kJetTestData + "TelList.fdb", journal_);
    std::filesystem::permissions(journal_, std::filesystem::perms::owner_all);
  }
  int Run(const std::string& password = {}) const {
    const std::string command =
        std::string(ORVANE_JET_CONVERTER) + " '" + journal_.string() + "' " + password;
    return WEXITSTATUS(std::system((command + " >/dev/null 2>&1").c_str()));
  }
  // All columns of all rows of both tables.
  std::vector<DbValue> Content(DbMode mode) {
    std::vector<DbValue> values;
    const auto connection = services_.Open(journal_.string(), "vnar", mode);
    for (const char* const table : {"o", "i"}) {
      const auto rows =
          connection->Execute("SELECT ID,Ext,Zeit,Firma,Ort,Person,Nr,AdrID,DUID,Dauer FROM " +
                              std::string(table) + " ORDER BY ID");
      for (; !rows->AtEnd(); rows->MoveNext()) {
        for (int i = 0; i < 10; ++i) values.push_back(rows->Field(i));
      }
    }
    return values;
  }

  JetServices services_;
  TemporaryFolder folder_;
  std::filesystem::path journal_ = folder_ / "TelList.fdb";
};

TEST_F(JetConverter, KeepsEveryCallAndTheOldFile) {
  const std::vector<DbValue> before = Content(DbMode::kRead);
  EXPECT_EQ(before.size(), 6350U);
  const std::string old = ReadFile(journal_);
  // As if a first run had been stopped in the middle.
  for (const char* const left : {"TelList.fdb.jet", "TelList.fdb.neu"}) folder_.Write(left, old);
  ASSERT_EQ(Run(), 0);
  EXPECT_EQ(Content(DbMode::kWrite), before);
  EXPECT_EQ(ReadFile(folder_ / "TelList.fdb.jet"), old);
}

TEST_F(JetConverter, LeavesEverythingAloneWhenItFails) {
  const std::string old = ReadFile(journal_);
  EXPECT_EQ(Run("falsch"), 1);
  EXPECT_FALSE(std::filesystem::exists(folder_ / "TelList.fdb.jet"));
  folder_.Write("TelList.fdb.jet", "von früher");
  EXPECT_EQ(Run(), 1);
  EXPECT_EQ(ReadFile(journal_), old);
  EXPECT_EQ(ReadFile(folder_ / "TelList.fdb.jet"), "von früher");
  EXPECT_FALSE(std::filesystem::exists(folder_ / "TelList.fdb.neu"));
}

}  // namespace
}  // namespace orvane
