#include "platform/common/database_errors.h"

#include "platform/database.h"
#include "platform/errors.h"

namespace orvane {

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

void ThrowFileMissing(const std::string& shownPath) {
  throw DatabaseError(kDbErrorFailed,
                      "Die Datei '" + shownPath + "' konnte nicht gefunden werden.");
}

void ThrowFileUnreadable(const std::string& shownPath) {
  throw DatabaseError(kDbErrorFailed, "Die Datei '" + shownPath +
                                          "' konnte nicht geöffnet werden. Prüfen Sie die "
                                          "Zugriffsrechte.");
}

void ThrowFileNotRecognised(const std::string& shownPath, int nativeNumber) {
  throw DatabaseError(kDbErrorFailed, "Nicht erkennbares Datenbankformat '" + shownPath + "'.",
                      nativeNumber);
}

void ThrowFileExists(const std::string& shownPath) {
  throw DatabaseError(kDbErrorFailed, "Die Datei '" + shownPath + "' ist bereits vorhanden.");
}

}  // namespace orvane
