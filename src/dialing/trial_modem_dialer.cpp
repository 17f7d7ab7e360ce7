#include "dialing/trial_modem_dialer.h"

namespace orvane {

TrialModemDialer::TrialModemDialer(const ModemPort& port, TrialDialPanel& panel)
    : panel_(panel),
      modem_(port, [&panel](const std::string& line) { panel.AppendProgress(line); }) {}

void TrialModemDialer::TestDialModem(const std::string& number) {
  if (panel_.TestDialPressed()) {
    if (modem_.HangUp()) {
      panel_.AppendProgress(">>> Auflegesignal wurde gesendet.");
      panel_.AppendProgress("Status: <OK>");
    }
    panel_.SetTestDialIdle(true);
    return;
  }
  panel_.SetTestDialIdle(false);
  const int port = panel_.SelectedComPort();
  modem_.Start(port, number, [this, &number, port] {
    panel_.AppendProgress("Gegenstelle wird angewählt: " + number);
    panel_.AppendProgress(">>> Wählbefehl über 'COM" + std::to_string(port) + "' gesendet.");
  });
}

}  // namespace orvane
