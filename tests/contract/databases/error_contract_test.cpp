// What the program is told when something goes wrong, whatever engine keeps the contacts.

#include "contract/databases/contact_engine.h"
#include "fakes/program_fixture.h"
#include "journal/contact_lookup.h"

namespace orvane {
namespace {

struct OpeningCase {
  DatabaseFailure failure;
  std::int32_t number;
  const char* words;
};
constexpr OpeningCase kOpening[] = {
    {DatabaseFailure::kLoginRefused, kDbErrorLogin,
     "Die Server-Anmeldung wurde abgewiesen!\r\rBitte prüfen Sie die administrativen "
     "Server-Zugangsdaten!"},
    {DatabaseFailure::kPasswordRefused, kDbErrorLogin, "Kein zulässiges Kennwort."},
    {DatabaseFailure::kServerNotFound, kDbErrorFailed,
     "SQL Server existiert nicht oder Zugriff verweigert."},
    {DatabaseFailure::kFileMissing, kDbErrorFailed, "CONTACT.FDB' konnte nicht gefunden werden."},
    {DatabaseFailure::kFileNotRecognised, kDbErrorFailed, "Nicht erkennbares Datenbankformat '"},
    {DatabaseFailure::kFileLocked, kDbErrorFailed,
     "Sie wird bereits von einem anderen Programm verwendet."}};

struct StatementCase {
  const char* sql;
  std::int32_t number;
  std::int32_t native;  // 0 where every engine has its own
  const char* words;
  bool writes = false;
};
constexpr StatementCase kStatements[] = {
    {"SELECT Firma1 FROM Adressen WHERE", kDbErrorSyntax, 0, "Syntaxfehler"},
    {"SELECT Firma1 FROM Adressen WHERE Ort='O'Brien'", kDbErrorSyntax, 0, "Syntaxfehler"},
    {"SELECT Umsatz FROM Adressen", kDbErrorSyntax, 0, "Syntaxfehler"},
    {"SELECT Firma1 FROM Gibtsnicht", kDbErrorSyntax, 0, "Syntaxfehler"},
    {"SELECT Firma1 FROM Adressen; DELETE FROM Adressen", kDbErrorSyntax, 0, "Syntaxfehler"},
    {"DROP TABLE Adressen", kDbErrorSyntax, 0, "Syntaxfehler"},
    {"INSERT INTO Grp_Abt (ID,Bez) VALUES (1,'zweimal')", kDbErrorFailed, -1605,
     "doppelte Werte in einem Schlüssel", true},
    {"INSERT INTO Grp_Abt (ID,Bez) VALUES (NULL,'ohne')", kDbErrorFailed, 515,
     "nicht leer sein darf", true}};

class ErrorContract : public ProgramFixture,
                      public testing::WithParamInterface<ContactEngineEntry> {
 protected:
  CurrentCall call;
  void SetUp() override {
    engine_ = GetParam().make();
    if (!engine_->Obstacle().empty()) GTEST_SKIP() << engine_->Obstacle();
    engine_->Select(state.host);
    state.databases.host = engine_->Databases().NewConnection();
  }

  std::unique_ptr<ContactEngine> engine_;
};

TEST_P(ErrorContract, OpeningFailsWithTheNumberAndTheWordsThatTheUserIsShown) {
  int caused = 0;
  for (const auto& [failure, number, words] : kOpening) {
    SCOPED_TRACE(words);
    if (!engine_->Cause(failure, state.host)) continue;
    ++caused;
    call.company = "vorher";
    ResolveNumber(prompts, state, call);
    EXPECT_EQ(call.company, "vorher");
    ASSERT_EQ(prompts.boxes.size(), static_cast<std::size_t>(caused));
    EXPECT_NE(prompts.boxes.back().text.find(words), std::string::npos)
        << prompts.boxes.back().text;
    EXPECT_EQ(prompts.boxes.back().title, "(" + std::to_string(number) + ") Fehler bei Anmeldung!");
    engine_->Select(state.host);
  }
  EXPECT_GE(caused, 2);
  EXPECT_TRUE(ReopenDB(prompts, state));
}

TEST_P(ErrorContract, AStatementFailsWithTheNumberOfItsFailureAndChangesNothing) {
  ASSERT_TRUE(ReopenDB(prompts, state));
  DatabaseConnection& contacts = *state.databases.host;
  for (const auto& [sql, number, native, words, writes] : kStatements) {
    SCOPED_TRACE(sql);
    if (writes && !engine_->CanWrite()) continue;
    try {
      contacts.Execute(sql);
      ADD_FAILURE() << "no error";
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.Number(), number) << error.Description();
      EXPECT_NE(error.Description().find(words), std::string::npos) << error.Description();
      EXPECT_EQ(native != 0 ? error.NativeNumber() : 0, native);
      EXPECT_FALSE(error.OfStorage());
    }
    EXPECT_EQ(contacts.Execute("SELECT Firma1 FROM Adressen WHERE AdrID=2")->Field(0),
              DbValue("Muster GmbH"));
    EXPECT_EQ(contacts.Execute("SELECT Count(Bez) FROM Grp_Abt")->Field(0),
              DbValue(std::int64_t{4}));
  }
  contacts.Close();
  EXPECT_THROW(contacts.Execute("SELECT Ort FROM Adressen"), DatabaseError);
}

INSTANTIATE_TEST_SUITE_P(Engines, ErrorContract, testing::ValuesIn(ContactEngines()),
                         [](const auto& entry) { return std::string(entry.param.name); });

}  // namespace
}  // namespace orvane
