#include "journal/contact_lookup.h"

#include <gtest/gtest.h>

#include "contact_schema.h"
#include "fakes/program_fixture.h"

namespace orvane {
namespace {

class ContactLookupTest : public ProgramFixture {
 protected:
  ContactLookupTest() {
    CreateDemoContactFile(folder / "Daten/CONTACT.FDB");
    state.databases.host = databases.NewConnection();
  }

  void Look(const std::string& dialled, const std::string& prepared) {
    call.lastDialedDigits = dialled;
    call.canonicalNumber = prepared;
    ResolveNumber(services, state, call);
  }
  std::string Result() const {
    return call.company + "|" + call.place + "|" + call.person + "|" +
           std::to_string(call.addressKey) + "|" + std::to_string(call.personKey);
  }
};

TEST_F(ContactLookupTest, FindsTheContactOfANumber) {
  const struct {
    const char *what, *dialled, *prepared, *result;
  } kCases[] = {
      {"person", "030123456", "4930123456",
       "Havelwerk Maschinenbau GmbH|Berlin|Lindner, Katharina|1|101"},
      {"no first name", "x", "4989667790", "Isartal Feinmechanik GmbH|München|Zentrallager|4|107"},
      {"dialled form", "4930123456", "x12345",
       "Havelwerk Maschinenbau GmbH|Berlin|Lindner, Katharina|1|101"},
      {"two persons", "x", "49211445566",
       "Rheinkontor Spedition AG|Düsseldorf|Nummer existiert mehrfach|2|0"},
      {"same person twice", "x", "496131223344",
       "Domplatz Optik Hartmann|Mainz|Hartmann, Clara|15|401"},
      {"no person", "x", "496987654300", "Mainufer Treuhand GmbH|Frankfurt|vorher|12|0"},
      {"no company", "x", "49893344550", "|München|Albers, Ruth|10|114"},
      {"no place", "x", "494088990012", "Wanderservice Immergrün||Immergrün, Nils|11|115"},
      {"unknown", "999999", "999999", "<Nicht gelistet>||Unbekannt|0|0"},
      {"short", "99999", "49999", "<Nicht gelistet>||Unbekannt|0|0"},
  };
  for (const auto& test : kCases) {
    SCOPED_TRACE(test.what);
    call.person = "vorher";
    call.addressKey = call.personKey = 5;
    Look(test.dialled, test.prepared);
    EXPECT_EQ(Result(), test.result);
    EXPECT_FALSE(state.databases.host->IsOpen());
  }
}

TEST_F(ContactLookupTest, FindsTheUserOfAnExtension) {
  const struct {
    const char *extension, *result;
  } kCases[] = {{"217", "Intern|Einkauf|Brandt, Jonas|0|1"},
                {"100", "Intern|Empfang|Empfang|0|3"},
                {"301", "Intern|Werkstatt|N.N.|0|4"},
                {"12", "Intern||Kühn, Dorothea|0|5"},
                {"44", "Intern||N.N.|0|0"},
                {"999", "Intern||N.N.|0|0"}};
  for (const auto& test : kCases) {
    SCOPED_TRACE(test.extension);
    call.place = call.person = "vorher";
    call.addressKey = call.personKey = 5;
    call.lastDialedDigits = test.extension;
    ResolveExtension(services, state, call);
    EXPECT_EQ(Result(), test.result);
  }
}

TEST_F(ContactLookupTest, ComparesShortNumbersByEqualityAndLongOnesByLists) {
  const struct {
    const char *dialled, *prepared, *part;
  } kCases[] = {
      {"123", "49123",
       "WHERE AdrDetail.RawTel1='123' OR AdrDetail.RawTel2='123' OR AdrDetail.RawSekTel='123' OR "
       "AdrDetail.RawHandy='123' OR AdrDetail.RawHandyprv='123' OR AdrDetail.RawTelprv='123' OR "
       "Adressen.RawZentrTel='123'"},
      {"01234", "491234", "WHERE AdrDetail.RawTel1 IN('01234','491234') OR "},
      {"01234", "491234", " OR Adressen.RawZentrTel IN('01234','491234')"},
  };
  for (const auto& test : kCases) {
    SCOPED_TRACE(test.part);
    Look(test.dialled, test.prepared);
    EXPECT_NE(databases.statements.back().find(test.part), std::string::npos)
        << databases.statements.back();
  }
}

TEST_F(ContactLookupTest, OpensTheDatabaseThatTheHostNames) {
  Look("1", "1");
  EXPECT_EQ(databases.Property("Data Source"), state.host.dataPath + "CONTACT.FDB");
  EXPECT_EQ(databases.Property("Jet OLEDB:Database Password"), "4rdxtz8w");
  EXPECT_FALSE(databases.Property("Password"));
  state.host.sqlPassword = "geheim";
  Look("1", "1");
  EXPECT_EQ(databases.Property("ConnectionString"), state.databases.hostConnectionString);
  EXPECT_EQ(databases.Property("Password"), "geheim");
}

TEST_F(ContactLookupTest, BuildsServerPropertiesAndReportsTheFailure) {
  const struct {
    const char *login, *password;
    std::optional<std::string> user, security;
  } kCases[] = {
      {"", "", std::nullopt, "SSPI"}, {"sa", "", "sa", std::nullopt}, {"", "pw", "", std::nullopt}};
  state.host.useSqlServer = true;
  state.host.sqlServerName = "SRV1";
  databases.FailOpen(3706, "Provider fehlt");
  for (const auto& test : kCases) {
    SCOPED_TRACE(std::string(test.login) + "/" + test.password);
    databases.properties.clear();
    prompts.boxes.clear();
    state.host.sqlLogin = test.login;
    state.host.sqlPassword = test.password;
    call.company = "vorher";
    Look("1", "1");
    EXPECT_EQ(databases.Property("Provider"), "SQLOLEDB.1");
    EXPECT_EQ(databases.Property("Data Source"), "SRV1");
    EXPECT_EQ(databases.Property("Initial Catalog"), "Talmix");
    EXPECT_EQ(databases.Property("User ID"), test.user);
    EXPECT_EQ(databases.Property("Integrated Security"), test.security);
    EXPECT_EQ(call.company, "vorher");
    EXPECT_EQ(prompts.boxes.at(0),
              (FakePrompts::Box{PromptIcon::kExclamation,
                                "Datenbank konnte nicht initialisiert werden!\r\rProvider fehlt",
                                "Zugriffsfehler bei 'Perch: ReopenDB',  3706"}));
  }
}

TEST_F(ContactLookupTest, AFieldThatCannotBeReadLeavesItsTarget) {
  call.place = "alter Ort";
  databases.FailField("Ort");
  Look("x", "4930123456");
  EXPECT_EQ(Result(), "Havelwerk Maschinenbau GmbH|alter Ort|Lindner, Katharina|1|101");
  databases.FailStatement("SELECT");
  Look("x", "49211445566");
  EXPECT_EQ(call.company, "Havelwerk Maschinenbau GmbH");
  EXPECT_TRUE(prompts.boxes.empty());
}

}  // namespace
}  // namespace orvane
