#include "app/error_report.h"

#include <gtest/gtest.h>

#include "app/version.h"
#include "fakes/fake_prompts.h"
#include "platform/errors.h"

namespace orvane {
namespace {

std::string Report(std::int32_t number, const char* procedure, std::int32_t native = 0) {
  FakePrompts prompts;
  prompts.busy = true;
  ShowError(prompts, {number, "Microsoft Jet <meldet> & klagt", 0}, procedure, native);
  EXPECT_EQ(prompts.beeps, 1);
  EXPECT_FALSE(prompts.busy);
  EXPECT_EQ(prompts.markups.at(0).icon, PromptIcon::kExclamation);
  return prompts.markups.at(0).text;
}

TEST(ErrorReportTest, ExplainsKnownErrors) {
  const struct {
    std::int32_t number;
    const char* procedure;
    std::int32_t native;
    const char* beginning;
  } kCases[] = {
      {-2147217887, "X", 0,
       "Talmix hat den Vorgang angehalten, da Sie und ein weiterer Benutzer gleichzeitig "
       "versuchten,<br>dieselben Daten zu verändern.<br><br>Bitte"},
      {-2147467259, "X", 0,
       "Datensatz existiert bereits in der Datenbank!<br>Doppelte Einträge sind nicht "
       "möglich.<br><br>System"},
      {-2147217900, "X", 0, "Datensatz existiert bereits"},
      {3705, "X", 0,
       "Die Daten konnten wegen vorangegangener fehlgeschlagener Aktion nicht aktualisiert "
       "werden.<br>Bitte"},
      {40009, "X", 0, "Keine aktuelle Zeile. Vermutlich"},
      {-2147467259, "grdTel", 515, "Ein oder mehrere Muss-Feld(er)"},
      {1, "grdTel", 2601, "Ein indizierter Feldinhalt"},
      {1, "grdTel", 2627, "Sie können den Datensatz nicht speichern!<br>Sie haben"},
      {1, "grdTel", -1605, "Sie können den Datensatz nicht speichern!"},
      {1, "grdTel", 6163, "Sie haben versucht eine bereits leere"},
      {1, "grdTel", 6160, "Ein in der gleichen Tabellenzeile"},
      {3705, "grdTel", 0, "Fehler im Tabellenfeld!<br><br>"},
      {1, "rtfText", 321, "Datei kann nicht geöffnet werden. Ungültiges Dateiformat!"},
      {1, "rtfText", 322, "Fehler 1, Prozedur:"},
      {1, "X", 321, "Fehler 1, Prozedur: \"X\", Version "},
  };
  for (const auto& test : kCases) {
    SCOPED_TRACE(test.beginning);
    const std::string text = Report(test.number, test.procedure, test.native);
    EXPECT_TRUE(text.starts_with(test.beginning)) << text;
  }
}

TEST(ErrorReportTest, AddsTheTechnicalLine) {
  EXPECT_TRUE(
      Report(3705, "DialTAPI")
          .ends_with("<br><br>Systemmeldung für Wartungszwecke:<br>=======================<br>"
                     "Fehler 3705, Prozedur: \"DialTAPI\", Version " +
                     ProgramVersion()));
  EXPECT_TRUE(Report(9, "P").ends_with("<br><br>Talmix &lt;meldet> &amp; klagt"));
  FakePrompts prompts;
  ShowError(prompts, {9, "x", 120}, "P");
  EXPECT_NE(prompts.markups.at(0).text.find("Fehler 9, Zeile: 120, Prozedur"), std::string::npos);
}

TEST(ErrorReportTest, TurnsEveryLineBreakIntoMarkupOnce) {
  EXPECT_EQ(MessageMarkup("a\r\nb\rc\nd<br>e<b>"), "a<br>b<br>c<br>d<br>e&lt;b>");
}

}  // namespace
}  // namespace orvane
