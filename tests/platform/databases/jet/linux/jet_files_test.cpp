// Real Jet files: what is in them, who may open them, and what they may do when they are damaged.

#include <gtest/gtest.h>

#include <random>

#include "fakes/temporary_folder.h"
#include "platform/databases/jet/linux/jet_test_support.h"
#include "platform/errors.h"

namespace orvane {
namespace {

constexpr const char* kHostPassword = "4rdxtz8w";

// Both texts of a failure, or "opened".
std::string OpenFailure(JetServices& services, const std::string& file, const std::string& password,
                        DbMode mode = DbMode::kUnknown) {
  try {
    services.Open(file, password, mode);
  } catch (const DatabaseError& error) {
    return std::to_string(error.Number()) + " " + error.Description();
  }
  return "opened";
}

std::string Text(const DbValue& value) {
  if (const auto* number = std::get_if<std::int64_t>(&value)) return std::to_string(*number);
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  return std::holds_alternative<double>(value) ? "date" : "null";
}

// The first column of all rows, each followed by a blank.
std::string Column(DatabaseConnection& connection, const std::string& sql) {
  std::string result;
  for (const auto rows = connection.Execute(sql); !rows->AtEnd(); rows->MoveNext()) {
    result += Text(rows->Field(0)) + " ";
  }
  return result;
}

TEST(JetFiles, AnswerAsDocumented) {
  JetServices services;
  const std::tuple<const char*, const char*, const char*, const char*> kCases[] = {
      {"CONTACT.FDB", kHostPassword, "SELECT Count(AdrID) FROM Adressen", "15 "},
      {"CONTACT.FDB", kHostPassword, "SELECT Count(DetID) FROM AdrDetail", "18 "},
      {"CONTACT.FDB", kHostPassword, "SELECT Count(ID) FROM Benutzer", "6 "},
      {"CONTACT.FDB", kHostPassword, "SELECT Count(ID) FROM Grp_Abt", "5 "},
      {"CONTACT.FDB", kHostPassword, "SELECT Firma1 FROM adressen WHERE ADRID=10", "null "},
      {"CONTACT.FDB", kHostPassword, "SELECT * FROM Grp_Abt WHERE Bez IS NULL", "5 "},
      {"TelList.fdb", "vnar", "SELECT Count(ID) FROM o", "600 "},
      {"TelList.fdb", "vnar", "SELECT Count(ID) FROM i", "35 "},
      {"TelList.fdb", "vnar", "SELECT DISTINCT TOP 2 Zeit,Nr FROM i", "date date "},
      {"TelList.fdb", "vnar", "SELECT ID FROM i WHERE Zeit=#04/03/2024 09:05:07#", "35 "},
      {"TelList.fdb", "vnar", "SELECT ID FROM i WHERE FIX(CDBL(Zeit))=45384 AND Ext=-1", "33 34 "},
      {"VPB.rgt", kHostPassword, "SELECT Count(VW) FROM VW", "5228 "},
      {"VPB.rgt", kHostPassword, "SELECT Ort FROM VW WHERE VW IN('0211','02114','021145')",
       "Düsseldorf "},
      {"VPB.rgt", kHostPassword, "SELECT VW FROM VW WHERE VW IN('43','0201','02041')",
       "02041 0201 43 "}};
  for (const auto& [file, password, sql, result] : kCases) {
    SCOPED_TRACE(sql);
    EXPECT_EQ(Column(*services.Open(kJetTestData + file, password), sql), result);
  }
}

TEST(JetFiles, FindNumbersAmongManyRows) {
  JetServices services;
  const auto contacts =
      services.Open(std::string(ORVANE_BUILD_DIR) + "/testdata/CONTACT-large.FDB", kHostPassword);
  for (const int key : {1, 25'000, 50'000}) {
    const std::string number = "49" + std::to_string(3'000'000'000 + 10LL * key);
    std::string sql =
        "SELECT AdrDetail.DetID FROM Adressen LEFT JOIN AdrDetail ON "
        "Adressen.AdrID=AdrDetail.AdrID WHERE AdrDetail.RawTel1='";
    sql.append(number).append("' OR Adressen.RawZentrTel='").append(number).append("'");
    EXPECT_EQ(Column(*contacts, sql), std::to_string(key) + " ");
  }
  EXPECT_EQ(Column(*contacts, "SELECT Count(AdrID) FROM Adressen"), "20000 ");
}

TEST(JetFiles, AreOpenedByTheirPasswordAndForReading) {
  JetServices services;
  const std::string contacts = kJetTestData + "CONTACT.FDB";
  for (const char* const wrong : {"", "4RDXTZ8W", "4rdxtz8", "4rdxtz8w ", "vnar", "\xFF"}) {
    EXPECT_EQ(OpenFailure(services, contacts, wrong), "-2147217843 Kein zulässiges Kennwort.");
  }
  EXPECT_EQ(OpenFailure(services, contacts, kHostPassword, DbMode::kRead), "opened");
  for (const DbMode mode : {DbMode::kWrite, DbMode::kReadWrite}) {
    const std::string failure = OpenFailure(services, kJetTestData + "TelList.fdb", "vnar", mode);
    EXPECT_NE(failure.find("kann auf diesem System nur gelesen werden"), std::string::npos);
    EXPECT_NE(failure.find("orvane-jet-umwandeln"), std::string::npos);
  }
  const auto journal = services.Open(kJetTestData + "TelList.fdb", "vnar");
  for (const char* const sql : {"DELETE FROM o", "INSERT INTO o (ID) VALUES (9999)"}) {
    EXPECT_THROW(journal->Execute(sql), DatabaseError);
  }
  EXPECT_EQ(Column(*journal, "SELECT Max(ID) FROM o"), "600 ");
  EXPECT_THROW(services.Databases().CompactDatabase(
                   "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + contacts, "/nirgends/x"),
               DatabaseError);
}

TEST(JetFiles, AreReadAgainWhenTheyChange) {
  TemporaryFolder folder;
  const auto file = folder / "CONTACT.FDB";
  const auto put = [&file](const char* name) {
    std::filesystem::copy_file(kJetTestData + name, file,
                               std::filesystem::copy_options::overwrite_existing);
  };
  put("CONTACT.FDB");
  JetServices services;
  const std::string sql = "SELECT Count(AdrID) FROM Adressen";
  EXPECT_EQ(Column(*services.Open(file.string(), kHostPassword), sql), "15 ");
  put("VPB.rgt");
  const auto other = services.Open(file.string(), kHostPassword);
  EXPECT_EQ(Column(*other, "SELECT Count(VW) FROM VW"), "5228 ");
  EXPECT_THROW(other->Execute(sql), DatabaseError);
  std::filesystem::remove(file);
  EXPECT_NE(OpenFailure(services, file.string(), kHostPassword).find("gefunden"),
            std::string::npos);
}

TEST(JetFiles, FailWhenTheReaderDoes) {
  TemporaryFolder folder;
  const std::string contacts =
      folder.Write("CONTACT.FDB", ReadFile(kJetTestData + "CONTACT.FDB")).string();
  const std::string runs = folder / "runs";
  const auto reader = [&folder, &runs](const std::string& action) {
    auto file = folder.Write("reader", "#!/bin/sh\necho >>" + runs + "\n" + action);
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    return file;
  };
  const std::pair<const char*, const char*> kCases[] = {
      {"exec sleep 60\n", "zu groß oder antwortet zu langsam"},
      {"exec yes\n", "beschädigt"},
      {"exit 0\n", "beschädigt"},
      {"printf OJS1\n", "beschädigt"},
      {"printf OJS1EE\n", "beschädigt"},
      {"printf OJS1RE\n", "beschädigt"},
      {"printf 'OJS1T\\377\\377\\377\\377'; exec sleep 60\n", "beschädigt"},
      {"printf OJS1; exec cat /dev/zero\n", "beschädigt"}};
  for (const auto& [action, words] : kCases) {
    SCOPED_TRACE(action);
    std::filesystem::remove(runs);
    const bool silent = std::string_view(action).starts_with("exec sleep");
    JetServices services({std::chrono::milliseconds{silent ? 300 : 60'000}}, reader(action));
    // It is read once, and once more when it has changed.
    for (const char* const expected : {"\n", "\n", "\n\n"}) {
      if (expected[1] != 0) folder.Write("CONTACT.FDB", ReadFile(contacts) + '\0');
      const std::string failure = OpenFailure(services, contacts, kHostPassword);
      EXPECT_NE(failure.find(words), std::string::npos) << failure;
      EXPECT_EQ(ReadFile(runs), expected);
    }
  }
  JetServices none({}, folder / "fehlt");
  EXPECT_NE(OpenFailure(none, contacts, kHostPassword).find("nicht starten"), std::string::npos);
}

// One mutation: a few bytes of the file anywhere, or its end missing.
std::string Mutated(std::string file, std::mt19937& random) {
  if (random() % 8 == 0) file.resize(random() % file.size());
  for (auto i = 1 + random() % 40; i > 0 && file.size() > 4096; --i) {
    // The first page says whether it is a Jet file at all.
    const std::size_t at = 128 + random() % (file.size() - 128);
    const std::size_t run = std::min<std::size_t>(1 + random() % 16, file.size() - at);
    for (std::size_t k = 0; k < run; ++k) file[at + k] = static_cast<char>(random());
  }
  return file;
}

// The rows of one page at a time are lost; nobody may be told that the rest were all.
TEST(JetFiles, AreRefusedWhenRowsAreMissing) {
  const std::string whole = ReadFile(kJetTestData + "CONTACT.FDB");
  constexpr std::size_t kPageBytes = 4096;
  constexpr std::size_t kRowCountAt = 12;
  constexpr std::pair<const char*, const char*> kTables[] = {
      {"SELECT Count(AdrID) FROM Adressen", "15 "}, {"SELECT Count(DetID) FROM AdrDetail", "18 "}};
  TemporaryFolder folder;
  int refused = 0;
  for (std::size_t page = kPageBytes; page < whole.size(); page += kPageBytes) {
    SCOPED_TRACE(page);
    std::string damaged = whole;
    if (damaged[page] != 1) continue;
    damaged[page + kRowCountAt] = damaged[page + kRowCountAt + 1] = 0;
    const auto file = folder.Write("CONTACT.FDB", damaged);
    for (const auto& [sql, count] : kTables) {
      try {
        JetServices services;
        EXPECT_EQ(Column(*services.Open(file.string(), kHostPassword), sql), count);
      } catch (const DatabaseError& error) {
        ++refused;
      }
    }
  }
  EXPECT_GT(refused, 1);
}

TEST(JetFiles, CostOnlyTheReaderWhenTheyAreDamaged) {
  const std::string whole = ReadFile(kJetTestData + "CONTACT.FDB");
  TemporaryFolder folder;
  std::mt19937 random(20'261'123);
  int refused = 0;
  for (int round = 0; round < 120; ++round) {
    SCOPED_TRACE(round);
    const auto file = folder.Write("CONTACT.FDB", Mutated(whole, random));
    JetServices services({std::chrono::milliseconds{2000}, std::size_t{1} << 24});
    try {
      const auto contacts = services.Open(file.string(), kHostPassword);
      Column(*contacts,
             "SELECT * FROM Adressen LEFT JOIN AdrDetail ON Adressen.AdrID="
             "AdrDetail.AdrID");
    } catch (const DatabaseError& error) {
      ++refused;
      EXPECT_FALSE(error.Description().empty());
    }
  }
  EXPECT_GT(refused, 10);
  EXPECT_LT(refused, 120);
}

}  // namespace
}  // namespace orvane
