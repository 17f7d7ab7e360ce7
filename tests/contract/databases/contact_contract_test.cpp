// Whom a number or an extension belongs to, asked of every engine that can keep the contacts.

#include "contract/databases/contact_engine.h"
#include "fakes/program_fixture.h"
#include "journal/contact_lookup.h"

namespace orvane {
namespace {

class ContactContract : public ProgramFixture,
                        public testing::WithParamInterface<ContactEngineEntry> {
 protected:
  CurrentCall call;
  void SetUp() override {
    engine_ = GetParam().make();
    if (!engine_->Obstacle().empty()) GTEST_SKIP() << engine_->Obstacle();
    engine_->Select(state.host);
    state.databases.host = engine_->Databases().NewConnection();
  }
  std::string Look(const std::string& dialled, const std::string& prepared, bool intern) {
    call.company = call.place = call.person = "vorher";
    call.addressKey = call.personKey = 5;
    call.lastDialedDigits = dialled;
    call.canonicalNumber = prepared;
    (intern ? ResolveExtension : ResolveNumber)(prompts, state, call);
    return call.company + "|" + call.place + "|" + call.person + "|" +
           std::to_string(call.addressKey) + "|" + std::to_string(call.personKey);
  }

  std::unique_ptr<ContactEngine> engine_;
};

TEST_P(ContactContract, FindsWhomANumberBelongsTo) {
  const std::tuple<const char*, const char*, const char*, const char*> kCases[] = {
      {"person", "030123456", "4930123456",
       "Havelwerk Maschinenbau GmbH|Berlin|Lindner, Katharina|1|101"},
      {"dialled form", "0697654321", "x12345", "Muster GmbH|Frankfurt|Meier, Hans|2|201"},
      {"five characters: the dialled form alone", "4930123456", "12345",
       "Havelwerk Maschinenbau GmbH|Berlin|Lindner, Katharina|1|101"},
      {"five characters: the prepared form not", "1", "49309", "<Nicht gelistet>||Unbekannt|0|0"},
      {"two persons", "x", "49211445566",
       "Rheinkontor Spedition AG|Düsseldorf|Nummer existiert mehrfach|3|0"},
      {"head office of two persons", "x", "49211445560",
       "Rheinkontor Spedition AG|Düsseldorf|Nummer existiert mehrfach|3|0"},
      {"one person's number twice", "x", "49221998871",
       "Müller & Söhne Großhandel KG|Köln|Müller, Wolfgang|4|401"},
      {"two numbers of one person", "49221998872", "491754445556",
       "Müller & Söhne Großhandel KG|Köln|Müller, Wolfgang|4|401"},
      {"head office alone", "x", "49511223340", "Zentrale ohne Personen GmbH|Hannover|vorher|12|0"},
      {"then a head office alone", "4930123456", "49511223340",
       "Havelwerk Maschinenbau GmbH|Berlin|Lindner, Katharina|1|101"},
      {"then another company", "4315550001", "4930123456",
       "Havelwerk Maschinenbau GmbH|Berlin|Nummer existiert mehrfach|1|0"},
      {"no company", "x", "49341778890", "|Leipzig|Krause, Uwe|10|1001"},
      {"no place, no first name", "x", "4940667701", "Ohne Ort Consulting||Schmidt|11|1101"},
      {"apostrophe", "x", "4996112341",
       "Bäcker's Landbrot|Weiden in der Oberpfalz|O'Brien, Siobhán|5|501"},
      {"quotes", "x", "493731445501",
       "Seltene Erden \"Saxonia\" GmbH|Freiberg|Böhme, Ines|14|1401"},
      {"letters of other languages", "x", "493581667781",
       "Čapek & Łukasz Übersetzungen|Görlitz|Čapek, Zdeněk|15|1501"},
      {"long names", "x", "49345111221",
       "Verwaltungsgemeinschaft der vereinigten mitteldeutschen Kommunalversorgungsbetriebe und "
       "Zweckverbände Anstalt des öffentlichen Rechts|Halle (Saale)|von der "
       "Heydt-Rittershausen-Waldburg, Dr. Annegret Hildegard Wilhelmine|13|1301"},
      {"unknown", "999999", "999999", "<Nicht gelistet>||Unbekannt|0|0"}};
  for (const auto& [what, dialled, prepared, result] : kCases) {
    EXPECT_EQ(Look(dialled, prepared, false), result) << what;
    EXPECT_FALSE(state.databases.host->IsOpen());
  }
  EXPECT_TRUE(prompts.boxes.empty());
}

TEST_P(ContactContract, FindsWhomAnExtensionBelongsTo) {
  for (const auto& [extension, result] : {std::pair{"217", "Intern|Vertrieb|Sommer, Petra|0|17"},
                                          {"218", "Intern|Einkauf|Brandt, Jonas|0|18"},
                                          {"100", "Intern|Geschäftsführung|Empfang|0|19"},
                                          {"301", "Intern|Buchhaltung|N.N.|0|20"},
                                          {"12", "Intern||Keller, Mia|0|21"},
                                          {"44", "Intern||N.N.|0|0"},
                                          {"999", "Intern||N.N.|0|0"}}) {
    EXPECT_EQ(Look(extension, "", true), result);
  }
}

INSTANTIATE_TEST_SUITE_P(Engines, ContactContract, testing::ValuesIn(ContactEngines()),
                         [](const auto& entry) { return std::string(entry.param.name); });

}  // namespace
}  // namespace orvane
