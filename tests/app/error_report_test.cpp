#include "app/error_report.h"

#include <gtest/gtest.h>

#include "app/version.h"
#include "fakes/fake_prompts.h"
#include "platform/errors.h"

namespace orvane {

TEST(ErrorReportTest, ExplainsKnownErrorsAndAddsTheTechnicalLine) {
  const std::tuple<std::int32_t, std::int32_t, const char*, const char*> kCases[] = {
      {-2147217887, 0, "X",
       "Talmix hat den Vorgang angehalten, da Sie und ein weiterer Benutzer gleichzeitig "
       "versuchten,<br>dieselben Daten zu verändern.<br><br>Bitte"},
      {-2147467259, 0, "X",
       "Datensatz existiert bereits in der Datenbank!<br>Doppelte Einträge sind nicht "
       "möglich.<br><br>System"},
      {-2147217900, 0, "X", "Datensatz existiert bereits"},
      {3705, 0, "X",
       "Die Daten konnten wegen vorangegangener fehlgeschlagener Aktion nicht aktualisiert "
       "werden.<br>Bitte"},
      {40009, 0, "X", "Keine aktuelle Zeile. Vermutlich"},
      {-2147467259, 515, "grdTel", "Ein oder mehrere Muss-Feld(er)"},
      {1, 2601, "grdTel", "Ein indizierter Feldinhalt"},
      {1, 2627, "grdTel", "Sie können den Datensatz nicht speichern!<br>Sie haben"},
      {1, -1605, "grdTel", "Sie können den Datensatz nicht speichern!"},
      {1, 6163, "grdTel", "Sie haben versucht eine bereits leere"},
      {1, 6160, "grdTel", "Ein in der gleichen Tabellenzeile"},
      {3705, 0, "grdTel", "Fehler im Tabellenfeld!<br><br>"},
      {1, 321, "rtfText", "Datei kann nicht geöffnet werden. Ungültiges Dateiformat!"},
      {1, 322, "rtfText", "Fehler 1, Zeile: 120, Prozedur: \"rtfText\", Version "},
      {1, 321, "X", "Fehler 1, Zeile: 120, Prozedur: \"X\", Version "}};
  for (const auto& [number, native, procedure, beginning] : kCases) {
    FakePrompts prompts;
    prompts.busy = true;
    ShowError(prompts, {number, "Jet <meldet> & klagt", 120}, procedure, native);
    EXPECT_EQ(prompts.beeps, 1);
    EXPECT_FALSE(prompts.busy);
    EXPECT_EQ(prompts.markups.at(0).icon, PromptIcon::kExclamation);
    const std::string text = prompts.markups[0].text;
    EXPECT_TRUE(text.starts_with(beginning)) << text;
    EXPECT_NE(text.find("Fehler " + std::to_string(number) + ", Zeile: 120"), text.npos);
  }
  FakePrompts prompts;
  ShowError(prompts, {3705, "x", 0}, "DialTAPI");
  ShowError(prompts, {9, "Jet <meldet> & klagt", 0}, "P");
  EXPECT_TRUE(prompts.markups.back().text.ends_with("<br><br>Jet &lt;meldet> &amp; klagt"));
  EXPECT_TRUE(prompts.markups.at(0).text.ends_with(
      "<br><br>Systemmeldung für Wartungszwecke:<br>=======================<br>Fehler 3705, "
      "Prozedur: \"DialTAPI\", Version " +
      ProgramVersion()));
  EXPECT_EQ(MessageMarkup("a\r\nb\rc\nd<br>e<b>"), "a<br>b<br>c<br>d<br>e&lt;b>");
}

}  // namespace orvane
