#include "platform/databases/database_errors.h"

#include <algorithm>
#include <iterator>

#include "platform/database.h"

namespace orvane {
namespace {

// What is in the way: what keeps the data, or what was asked of it.
enum class Cause { kStorage, kRequest };

struct Entry {
  DatabaseFailure failure;
  std::int32_t number;
  std::int32_t nativeNumber;
  Cause cause;
  std::string_view description;  // "%" stands for the subject
};

// A failed login is told from a server that is not there by the words: the report of a connection
// that cannot be opened looks for "Anmeldung für den Benutzer" and "Server existiert nicht oder
// Zugriff verweigert.".
constexpr Entry kEntries[] = {
    {DatabaseFailure::kPasswordRefused, kDbErrorLogin, 0, Cause::kStorage,
     "Kein zulässiges Kennwort."},
    {DatabaseFailure::kLoginRefused, kDbErrorLogin, 18456, Cause::kStorage,
     "Fehler bei der Anmeldung für den Benutzer '%'."},
    {DatabaseFailure::kServerNotFound, kDbErrorFailed, 17, Cause::kStorage,
     "SQL Server existiert nicht oder Zugriff verweigert."},
    {DatabaseFailure::kServerLost, kDbErrorFailed, 11, Cause::kStorage,
     "Allgemeiner Netzwerkfehler. Die Verbindung zum Server ist abgebrochen."},
    {DatabaseFailure::kStatementTooLong, kDbErrorTimeout, 0, Cause::kRequest,
     "Timeout abgelaufen."},
    {DatabaseFailure::kDriverMissing, kDbErrorProviderNotFound, 0, Cause::kStorage,
     "Es ist kein ODBC-Treiber für % installiert."},
    {DatabaseFailure::kReaderMissing, kDbErrorProviderNotFound, 0, Cause::kStorage,
     "Das Programm '%', das Jet-Datenbanken liest, lässt sich nicht starten."},
    {DatabaseFailure::kFileMissing, kDbErrorFailed, 0, Cause::kStorage,
     "Die Datei '%' konnte nicht gefunden werden."},
    {DatabaseFailure::kFileUnreadable, kDbErrorFailed, 0, Cause::kStorage,
     "Die Datei '%' konnte nicht geöffnet werden. Prüfen Sie die Zugriffsrechte."},
    {DatabaseFailure::kFileNotRecognised, kDbErrorFailed, 0, Cause::kStorage,
     "Nicht erkennbares Datenbankformat '%'."},
    {DatabaseFailure::kFileExists, kDbErrorFailed, 0, Cause::kRequest,
     "Die Datei '%' ist bereits vorhanden."},
    {DatabaseFailure::kFileLocked, kDbErrorFailed, 0, Cause::kStorage,
     "Die Datei '%' konnte nicht verwendet werden. Sie wird bereits von einem anderen Programm "
     "verwendet."},
    {DatabaseFailure::kFileDamaged, kDbErrorFailed, 0, Cause::kStorage,
     "Die Datenbank '%' ist beschädigt."},
    {DatabaseFailure::kFileWriteProtected, kDbErrorFailed, 0, Cause::kStorage,
     "Die Datei '%' oder ihr Ordner ist schreibgeschützt. Änderungen sind nicht möglich."},
    {DatabaseFailure::kFileTooLarge, kDbErrorFailed, 0, Cause::kStorage,
     "Die Datenbank '%' ist zu groß oder antwortet zu langsam, um sie hier zu lesen."},
    {DatabaseFailure::kJetReadOnly, kDbErrorFailed, 0, Cause::kStorage,
     "Die Datei '%' ist eine Jet-Datenbank und kann auf diesem System nur gelesen werden. Das "
     "Programm 'orvane-jet-umwandeln' wandelt sie in eine beschreibbare Datei um und hebt die alte "
     "auf."},
    {DatabaseFailure::kDiskFull, kDbErrorFailed, 0, Cause::kStorage,
     "Der Datenträger mit der Datei '%' ist voll."},
    {DatabaseFailure::kDiskError, kDbErrorFailed, 0, Cause::kStorage,
     "Fehler beim Lesen oder Schreiben von '%'."},
    {DatabaseFailure::kOutOfMemory, kDbErrorFailed, 0, Cause::kStorage,
     "Nicht genügend Arbeitsspeicher."},
    {DatabaseFailure::kValueTooLarge, kDbErrorFailed, 0, Cause::kRequest,
     "Der Wert ist zu groß für die Datenbank '%'."},
    {DatabaseFailure::kSyntax, kDbErrorSyntax, 0, Cause::kRequest,
     "Syntaxfehler oder unbekannter Name in der Anweisung (%)."},
    {DatabaseFailure::kDuplicate, kDbErrorFailed, -1605, Cause::kRequest,
     "Die Änderungen konnten nicht vorgenommen werden, weil sie doppelte Werte in einem Schlüssel "
     "der Tabelle ergeben würden."},
    {DatabaseFailure::kNullField, kDbErrorFailed, 515, Cause::kRequest,
     "Die Änderungen konnten nicht vorgenommen werden, weil ein Feld der Tabelle nicht leer sein "
     "darf."},
    {DatabaseFailure::kRule, kDbErrorFailed, 0, Cause::kRequest,
     "Die Änderungen konnten nicht vorgenommen werden, weil sie gegen einen Schlüssel oder eine "
     "Gültigkeitsregel der Tabelle verstoßen."},
    {DatabaseFailure::kOther, kDbErrorFailed, 0, Cause::kRequest,
     "Fehler beim Lesen oder Schreiben von '%'."},
};

std::string Filled(std::string_view description, std::string_view subject) {
  const std::size_t place = description.find('%');
  std::string result(description.substr(0, place));
  if (place == std::string_view::npos) return result;
  return result.append(subject).append(description.substr(place + 1));
}

}  // namespace

DatabaseError ErrorOf(DatabaseFailure failure, std::string_view subject,
                      std::int32_t nativeNumber) {
  const Entry* const found =
      std::find_if(std::begin(kEntries), std::end(kEntries),
                   [failure](const Entry& entry) { return entry.failure == failure; });
  return {found->number, Filled(found->description, subject),
          nativeNumber != 0 ? nativeNumber : found->nativeNumber, found->cause == Cause::kStorage};
}

void ThrowObjectOpen() {
  throw DatabaseError(kDbErrorObjectOpen,
                      "Der Vorgang ist für ein geöffnetes Objekt nicht zugelassen.");
}

void ThrowObjectClosed() {
  throw DatabaseError(kDbErrorObjectClosed,
                      "Der Vorgang ist für ein geschlossenes Objekt nicht zugelassen.");
}

void ThrowNoCurrentRow() {
  throw DatabaseError(kDbErrorNoCurrentRow,
                      "Entweder BOF oder EOF ist True, oder der aktuelle Datensatz wurde gelöscht. "
                      "Der angeforderte Vorgang benötigt einen aktuellen Datensatz.");
}

void ThrowNoSuchField() {
  throw DatabaseError(kDbErrorNoSuchField,
                      "Ein Objekt, das dem angeforderten Namen oder dem Ordinalverweis entspricht, "
                      "kann nicht gefunden werden.");
}

void ThrowProviderNotFound() {
  throw DatabaseError(kDbErrorProviderNotFound,
                      "Der Provider kann nicht gefunden werden. Er ist unter Umständen nicht "
                      "ordnungsgemäß installiert.");
}

}  // namespace orvane
