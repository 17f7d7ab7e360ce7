#include "journal/open_failure.h"

#include "platform/database.h"

namespace orvane {
namespace {

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

bool IsLoginFailure(const PlatformError& error) {
  return Contains(error.Description(), "Server existiert nicht oder Zugriff verweigert.") ||
         error.Number() == kDbErrorFailed || error.Number() == kDbErrorLogin;
}

}  // namespace

void ShowOpenFailure(Prompts& prompts, const PlatformError& error, const std::string& procedure,
                     const std::string& intro) {
  const std::string number = std::to_string(error.Number());
  prompts.Beep();
  if (!IsLoginFailure(error)) {
    prompts.ShowMessage(PromptIcon::kExclamation, intro + "\r\r" + error.Description(),
                        "Zugriffsfehler bei 'Perch: " + procedure + "',  " + number);
    return;
  }
  const bool refused = Contains(error.Description(), "Anmeldung für den Benutzer");
  prompts.ShowMessage(PromptIcon::kExclamation,
                      refused ? "Die Server-Anmeldung wurde abgewiesen!\r\rBitte prüfen Sie die "
                                "administrativen Server-Zugangsdaten!"
                              : error.Description(),
                      "(" + number + ") Fehler bei Anmeldung!");
}

}  // namespace orvane
