#include "dialing/test_modem_dialer.h"

namespace orvane {

TestModemDialer::TestModemDialer(Services& services, WorkQueue& queue, TestDialPanel& panel)
    : panel_(panel),
      modem_(services, queue, [&panel](const std::string& line) { panel.AppendProgress(line); }) {}

void TestModemDialer::TestDialModem(const std::string& number) {
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
