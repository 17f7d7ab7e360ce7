#include "dialing/modem_dialer.h"

namespace orvane {

ModemDialer::ModemDialer(const ModemPort& port, const DialSettings& settings, CurrentCall& call,
                         CallLogger& logger, DialPanel& panel)
    : settings_(settings),
      call_(call),
      logger_(logger),
      panel_(panel),
      modem_(port, [&panel](const std::string& line) { panel.AddStatus(line); }) {}

void ModemDialer::DialModem(const std::string& number) {
  if (panel_.SessionOn()) {
    HangUp();
    return;
  }
  panel_.SetDialButtonIdle(false);
  modem_.Start(settings_.comPortNumber, number, [this, &number] {
    panel_.AddStatus(">>> Wählen: " + number);
    logger_.LogCall(true, false);
  });
}

void ModemDialer::HangUp() {
  call_.startText.clear();
  if (modem_.HangUp()) {
    panel_.AddStatus(">>> Aufgelegt.");
    panel_.AddStatus("Status: <OK>");
  }
  panel_.SetDialButtonIdle(true);
}

}  // namespace orvane
