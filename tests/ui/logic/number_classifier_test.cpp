#include "ui/logic/number_classifier.h"

#include <gtest/gtest.h>

#include "fakes/faulty_database.h"
#include "fakes/temporary_folder.h"
#include "platform/databases/sqlite/sqlite_services.h"
#include "sqlite_script.h"

namespace orvane {
namespace {

class NumberClassifierTest : public testing::Test {
 protected:
  NumberClassifierTest() {
    SqliteScript script(folder_ / "VPB.rgt");
    script.Run("CREATE TABLE VW (VW TEXT, Ort TEXT)");
    script.Run(
        "INSERT INTO VW VALUES ('0211','Düsseldorf'), ('06021','Aschaffenburg'), ('033056',"
        "'Mühlenbeck'), ('0999',NULL), ('43','Österreich'), ('352','Luxemburg'),"
        "('353','Irland'), ('1876','Jamaika'), ('1212','nie')");
    script.Finish();
    table_ = databases_.NewConnection();
    table_->SetMode(DbMode::kRead);
    table_->SetProvider("Microsoft.Jet.OLEDB.4.0");
    table_->SetProperty("Data Source", (folder_ / "VPB.rgt").string());
  }

  std::string Classify(const std::string& number) {
    std::string label = classifier_.ClassifyNumber(number, number.starts_with("00"), table_.get());
    EXPECT_FALSE(table_->IsOpen()) << number;
    return label;
  }

  TemporaryFolder folder_;
  SqliteServices sqlite_;
  FaultyDatabase databases_{sqlite_};
  std::unique_ptr<DatabaseConnection> table_;
  NumberClassifier classifier_;
};

// One after the other, as the cache goes from each to the next.
TEST_F(NumberClassifierTest, AsksTheTableOnlyForWhatThePrefixesLeaveOpen) {
  struct Step {
    const char* number;
    const char* label;
    const char* candidates;  // empty: the table is not asked
  };
  const Step kSteps[] = {
      {"0301234", "Berlin", ""},
      {"0012125551", "USA/Kanada", ""},
      {"0079", "Russland/Kasachstan", ""},
      {"021", "<Inland>", "021','021','021"},
      {"0211", "Düsseldorf", "0211','0211','0211"},
      {"0211445566", "Düsseldorf", ""},
      {"0212445566", "<Inland>", "0212','02124','021244"},
      {"02119", "Düsseldorf", ""},  // what was not found leaves the cache alone
      {"0602144556", "Aschaffenburg", "0602','06021','060214"},
      {"060214", "Aschaffenburg", ""},
      {"06021", "Aschaffenburg", "0602','06021','06021"},  // shorter than what was cached
      {"060219", "Aschaffenburg", ""},
      {"0330567", "Mühlenbeck", "0330','03305','033056"},
      {"0999123", "", "0999','09991','099912"},  // a row without a place
      {"0999124", "", ""},
      {"0043", "Österreich", "43','43','43"},
      {"00431234", "Österreich", ""},
      {"003", "<Ausland>", "3','3','3"},
      {"0035", "<Ausland>", "35','35','35"},
      {"00352", "Luxemburg", "35','352','352"},
      {"003531", "Luxemburg", ""},  // the first two digits answer for all of their countries
      {"0043", "Österreich", "43','43','43"},
      {"003531", "Irland", "35','353','3531"},
      {"00187655", "Jamaika", "18','187','1876"},
      {"001809", "Jamaika", ""},
      {"0030", "<Ausland>", "30','30','30"}};
  for (const auto& [number, label, candidates] : kSteps) {
    SCOPED_TRACE(number);
    databases_.statements.clear();
    EXPECT_EQ(Classify(number), label);
    std::vector<std::string> statements;
    if (*candidates != '\0') {
      statements.push_back("SELECT Ort FROM VW WHERE VW IN('" + std::string(candidates) + "')");
    }
    EXPECT_EQ(databases_.statements, statements);
  }
}

TEST_F(NumberClassifierTest, DoesWithoutATableThatCannotBeRead) {
  databases_.FailOpen(kDbErrorFailed, "Die Datei fehlt");
  EXPECT_EQ(Classify("0211"), "<Inland>");
  EXPECT_EQ(Classify("0043"), "<Ausland>");
  databases_.Heal();
  databases_.FailStatement("SELECT");
  EXPECT_EQ(Classify("0211"), "<Inland>");
  databases_.Heal();
  EXPECT_EQ(Classify("0211"), "Düsseldorf");
  EXPECT_EQ(classifier_.ClassifyNumber("0043", true, nullptr), "<Ausland>");
}

}  // namespace
}  // namespace orvane
