#include "journal/contact_lookup.h"

#include "contact_schema.h"
#include "fakes/program_fixture.h"

namespace orvane {
namespace {

class ContactLookupTest : public ProgramFixture {
 protected:
  CurrentCall call;
  ContactLookupTest() {
    CreateDemoContactFile(folder / "Daten/CONTACT.FDB");
    state.databases.host = databases.NewConnection();
  }
  // What the call holds after the lookup; it held "vorher" and keys 5.
  std::string Look(const std::string& dialled, const std::string& prepared, bool intern = false) {
    call.company = call.place = call.person = "vorher";
    call.addressKey = call.personKey = 5;
    call.lastDialedDigits = dialled;
    call.canonicalNumber = prepared;
    (intern ? ResolveExtension : ResolveNumber)(prompts, state, call);
    EXPECT_FALSE(state.databases.host->IsOpen());
    return call.company + "|" + call.place + "|" + call.person + "|" +
           std::to_string(call.addressKey) + "|" + std::to_string(call.personKey);
  }
};

TEST_F(ContactLookupTest, FindsTheContactOfANumber) {
  const std::tuple<const char*, const char*, const char*, const char*> kCases[] = {
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
      {"short", "99999", "49999", "<Nicht gelistet>||Unbekannt|0|0"}};
  for (const auto& [what, dialled, prepared, result] : kCases) {
    EXPECT_EQ(Look(dialled, prepared), result) << what;
  }
}

TEST_F(ContactLookupTest, FindsTheUserOfAnExtension) {
  for (const auto& [extension, result] : {std::pair{"217", "Intern|Einkauf|Brandt, Jonas|0|1"},
                                          {"100", "Intern|Empfang|Empfang|0|3"},
                                          {"301", "Intern|Werkstatt|N.N.|0|4"},
                                          {"12", "Intern||Kühn, Dorothea|0|5"},
                                          {"44", "Intern||N.N.|0|0"},
                                          {"999", "Intern||N.N.|0|0"}}) {
    EXPECT_EQ(Look(extension, "", true), result);
  }
}

TEST_F(ContactLookupTest, ComparesShortNumbersByEqualityAndLongOnesByLists) {
  for (const auto& [dialled, prepared, part] :
       {std::tuple{"123", "49123",
                   "WHERE AdrDetail.RawTel1='123' OR AdrDetail.RawTel2='123' OR "
                   "AdrDetail.RawSekTel='123' OR AdrDetail.RawHandy='123' OR "
                   "AdrDetail.RawHandyprv='123' OR AdrDetail.RawTelprv='123' OR "
                   "Adressen.RawZentrTel='123'"},
        {"01234", "491234", "WHERE AdrDetail.RawTel1 IN('01234','491234') OR "},
        {"01234", "491234", " OR Adressen.RawZentrTel IN('01234','491234')"}}) {
    Look(dialled, prepared);
    EXPECT_NE(databases.statements.back().find(part), std::string::npos) << part;
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
  using Text = std::optional<std::string>;
  const std::tuple<const char*, const char*, Text, Text> kCases[] = {
      {"", "", {}, "SSPI"}, {"sa", "", "sa", {}}, {"", "pw", "", {}}};
  state.host.useSqlServer = true;
  state.host.sqlServerName = "SRV1";
  databases.FailOpen(3706, "Provider fehlt");
  for (const auto& [login, password, user, security] : kCases) {
    databases.properties.clear();
    state.host.sqlLogin = login;
    state.host.sqlPassword = password;
    EXPECT_EQ(Look("1", "1"), "vorher|vorher|vorher|5|5");
    EXPECT_EQ(databases.Property("Provider"), "SQLOLEDB.1");
    EXPECT_EQ(databases.Property("Data Source"), "SRV1");
    EXPECT_EQ(databases.Property("Initial Catalog"), "Talmix");
    EXPECT_EQ(databases.Property("User ID"), user);
    EXPECT_EQ(databases.Property("Integrated Security"), security);
    EXPECT_EQ(prompts.boxes.back(),
              (FakePrompts::Box{PromptIcon::kExclamation,
                                "Datenbank konnte nicht initialisiert werden!\r\rProvider fehlt",
                                "Zugriffsfehler bei 'Perch: ReopenDB',  3706"}));
  }
}

TEST_F(ContactLookupTest, AStatementThatFailsLeavesTheCallAlone) {
  databases.FailStatement("SELECT");
  EXPECT_TRUE(Look("x", "49211445566").starts_with("vorher|"));
  EXPECT_TRUE(prompts.boxes.empty());
}

}  // namespace
}  // namespace orvane
