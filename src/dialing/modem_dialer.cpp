#include "dialing/modem_dialer.h"

namespace orvane {

ModemDialer::ModemDialer(const ModemPort& port, const DialSettings& settings, Session& session,
                         DialPanel& panel)
    : settings_(settings),
      session_(session),
      panel_(panel),
      modem_(port, [&panel](const std::string& line) { panel.AddStatus(line); }) {}

void ModemDialer::DialModem(const std::string& number, const Moment& clicked) {
  if (session_.On()) {
    HangUp();
    return;
  }
  session_.Begin(Session::Way::kModem);
  modem_.Start(settings_.comPortNumber, number, [&] {
    panel_.AddStatus(">>> Wählen: " + number);
    session_.LogStart(clicked);
  });
}

void ModemDialer::HangUp() {
  if (modem_.HangUp() == ModemCall::HungUp::kDone) {
    panel_.AddStatus(">>> Aufgelegt.");
    panel_.AddStatus("Status: <OK>");
  }
  session_.Abandon();
}

}  // namespace orvane
