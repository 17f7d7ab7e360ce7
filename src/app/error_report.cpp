#include "app/error_report.h"

#include "app/version.h"
#include "platform/database.h"
#include "platform/errors.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

constexpr std::int32_t kErrorInvalidCall = 5;
constexpr std::int32_t kErrorNoCurrentGridRow = 40009;
constexpr std::int32_t kNativeFileFormat = 321;
constexpr std::string_view kReportTitle = "Brisko";

std::string FriendlyText(std::int32_t number) {
  switch (number) {
    case kDbErrorConflict:
      return "Talmix hat den Vorgang angehalten, da Sie und ein weiterer Benutzer gleichzeitig "
             "versuchten,\r\ndieselben Daten zu verändern.\r\n\r\nBitte schließen Sie ggf. das "
             "Bearbeitungsfenster und öffnen es erneut um die Änderungen des\r\nweiteren Benutzers "
             "zu überprüfen!";
    case kDbErrorFailed:
    case kDbErrorSyntax:
      return "Datensatz existiert bereits in der Datenbank!\r\nDoppelte Einträge sind nicht "
             "möglich.";
    case kDbErrorObjectOpen:
      return "Die Daten konnten wegen vorangegangener fehlgeschlagener Aktion nicht aktualisiert "
             "werden.\r\nBitte schließen Sie das Bearbeitungsfenster und versuchen Sie diese "
             "Aktion "
             "noch einmal.";
    case kErrorNoCurrentGridRow:
      return "Keine aktuelle Zeile. Vermutlich haben Sie ein/einige MUSS-Feld(er) nicht "
             "ausgefüllt. "
             "Prüfen Sie Ihre letzte Eingabe und füllen Sie ggf. leere Felder mit Daten.";
    default:
      return {};
  }
}

std::string GridText(std::int32_t nativeNumber) {
  switch (nativeNumber) {
    case 515:
      return "Ein oder mehrere Muss-Feld(er) wurde(n) nicht eingegeben. Bitte füllen Sie alle "
             "erforderlichen Felder aus!";
    case 2601:
      return "Ein indizierter Feldinhalt existiert bereits! Der Wert muss jedoch eindeutig sein!";
    case 2627:
    case -1605:
      return "Sie können den Datensatz nicht speichern!\r\nSie haben versucht einen bereits "
             "vorhandenen Datensatz doppelt einzugeben!\r\n\r\nÜberprüfen Sie Ihre Eingabe und "
             "ändern Sie diese entsprechend ab.";
    case 6163:
      return "Sie haben versucht eine bereits leere oder noch nicht zuvor gespeicherte Zeile zu "
             "löschen!\r\n\r\nÜberprüfen Sie Ihre Eingabe und ändern Sie diese entsprechend ab.";
    case 6160:
      return "Ein in der gleichen Tabellenzeile vorhandenes Pflichtfeld wurde (noch) nicht "
             "ausgefüllt!";
    default:
      return "Fehler im Tabellenfeld!";
  }
}

std::string Explanation(std::int32_t number, std::string_view procedure, std::int32_t native) {
  if (procedure.starts_with("grd")) return GridText(native);
  if (procedure.starts_with("rtf") && native == kNativeFileFormat) {
    return "Datei kann nicht geöffnet werden. Ungültiges Dateiformat!";
  }
  return FriendlyText(number);
}

std::string TechnicalLine(const ErrorState& error, std::string_view procedure) {
  std::string line = "Fehler " + std::to_string(error.number);
  if (error.line > 0) line += ", Zeile: " + std::to_string(error.line);
  return line + ", Prozedur: \"" + std::string(procedure) + "\", Version " + ProgramVersion();
}

}  // namespace

ErrorState ErrorStateOf(const std::exception& error) {
  if (const auto* known = dynamic_cast<const PlatformError*>(&error)) {
    return {known->Number(), known->Description(), 0};
  }
  return {kErrorInvalidCall, error.what(), 0};
}

void ShowError(Prompts& prompts, const ErrorState& error, std::string_view procedure,
               std::int32_t nativeNumber) {
  const std::string description = ReplaceAll(error.description, "Microsoft Jet", "Talmix");
  const std::string friendly = Explanation(error.number, procedure, nativeNumber);
  prompts.SetBusyCursor(false);
  prompts.Beep();
  const std::string technical = TechnicalLine(error, procedure);
  const std::string message = friendly.empty()
                                  ? technical + "\r\n\r\n" + description
                                  : friendly + "\r\n\r\nSystemmeldung für Wartungszwecke:\r\n" +
                                        "=======================\r\n" + technical;
  prompts.ShowMarkup(PromptIcon::kExclamation, MessageMarkup(message), std::string(kReportTitle));
}

std::string MessageMarkup(std::string_view text) {
  constexpr std::string_view kBreak = "<br>";
  std::string markup;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::string_view rest = text.substr(i);
    if (rest.starts_with(kBreak)) {
      markup += kBreak;
      i += kBreak.size() - 1;
    } else if (rest.starts_with("\r\n")) {
      markup += kBreak;
      ++i;
    } else if (text[i] == '\r' || text[i] == '\n') {
      markup += kBreak;
    } else if (text[i] == '&') {
      markup += "&amp;";
    } else if (text[i] == '<') {
      markup += "&lt;";
    } else {
      markup += text[i];
    }
  }
  return markup;
}

}  // namespace orvane
