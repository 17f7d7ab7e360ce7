// The files that the tools make: the empty journal and the demo contacts.

#include "contact_schema.h"
#include "journal_schema.h"
#include "sqlite_test_support.h"

namespace orvane {
namespace {

TEST(JournalFile, GivesTheNewestCallsFirst) {
  const TemporaryFolder folder;
  CreateJournalFile(folder / "TelList.fdb");
  const auto journal = OpenFile(folder / "TelList.fdb");
  for (const int id : {3, 1, 12, 7, 20}) journal->Execute(InsertCall(id));
  std::string ids;
  const auto rows = journal->Execute("SELECT DISTINCT TOP 3 Zeit,Ext,Nr,Firma,ID FROM o");
  for (; !rows->AtEnd(); rows->MoveNext()) {
    ids += std::to_string(std::get<std::int64_t>(rows->Field("ID"))) + " ";
  }
  EXPECT_EQ(ids, "20 12 7 ");
  EXPECT_NE(FailureOf([&] { journal->Execute("INSERT INTO o (ID) VALUES (2147483648)"); }),
            "no failure");
}

TEST(JournalFile, IsNeverWrittenOverAnother) {
  const TemporaryFolder folder;
  const auto file = folder.Write("TelList.fdb", "calls");
  EXPECT_THROW(CreateJournalFile(file), std::runtime_error);
  EXPECT_THROW(CreateJournalFile(folder / "none" / "TelList.fdb"), std::runtime_error);
  EXPECT_EQ(ReadFile(file), "calls");
}

TEST(DemoContacts, HoldTheSpecialCases) {
  const TemporaryFolder folder;
  CreateDemoContactFile(folder / "CONTACT.FDB");
  RawSqlite contacts(folder / "CONTACT.FDB");
  struct Case {
    const char* query;
    const char* expected;
  };
  const Case cases[] = {
      {"SELECT count(*) FROM Adressen", "15 "},
      {"SELECT count(*) FROM AdrDetail", "18 "},
      {"SELECT count(*) FROM Benutzer", "6 "},
      {"SELECT count(*) FROM Grp_Abt", "5 "},
      {"SELECT DetID FROM AdrDetail WHERE RawTel1='49211445566'", "103 104 "},
      {"SELECT AdrID FROM Adressen WHERE AdrID NOT IN (SELECT AdrID FROM AdrDetail)", "12 "},
      {"SELECT AdrID FROM Adressen WHERE Firma1 IS NULL", "10 "},
      {"SELECT AdrID FROM Adressen WHERE Ort IS NULL", "11 "},
      {"SELECT AdrID FROM Adressen WHERE length(Firma1)>99", "13 "},
      {"SELECT AdrID FROM Adressen WHERE Firma1 LIKE '%''%'", "5 "},
      {"SELECT DetID FROM AdrDetail WHERE NName LIKE '%''%'", "108 "},
      {"SELECT AdrID FROM Adressen WHERE Firma1 LIKE '%\"%\"%'", "14 "},
      {"SELECT DetID FROM AdrDetail WHERE RawTel1=RawTel2", "401 "},
      {"SELECT DetID FROM AdrDetail WHERE AdrID NOT IN (SELECT AdrID FROM Adressen)", ""},
      {"SELECT Durchwahl FROM Benutzer WHERE NName IS NULL", "301 "},
      {"SELECT Durchwahl FROM Benutzer JOIN Grp_Abt ON Grp_Abt.ID=AbtID WHERE Bez IS NULL", "12 "},
      {"SELECT Durchwahl FROM Benutzer WHERE AbtID NOT IN (SELECT ID FROM Grp_Abt)", "44 "},
      {"SELECT NName||VName||Bez FROM Benutzer JOIN Grp_Abt ON Grp_Abt.ID=AbtID"
       " WHERE Durchwahl='217'",
       "BrandtJonasEinkauf "},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.query);
    EXPECT_EQ(contacts.Run(c.query), c.expected);
  }
}

}  // namespace
}  // namespace orvane
