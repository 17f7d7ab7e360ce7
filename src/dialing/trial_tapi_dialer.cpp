#include "dialing/trial_tapi_dialer.h"

#include <exception>

#include "app/error_report.h"
#include "app/line_opening.h"
#include "platform/errors.h"
#include "platform/tapi_control.h"

namespace orvane {

void TrialTapiDialer::TestDialTapi(const std::string& number) {
  panel_.SetTestDialEnabled(false);
  try {
    if (panel_.TestDialPressed()) {
      Drop();
    } else {
      Place(number);
    }
  } catch (const std::exception& error) {
    panel_.SetTestDialIdle(true);
    ShowError(prompts_, ErrorStateOf(error), "TAPI-Testwahl");
  }
  panel_.SetTestDialEnabled(true);
}

void TrialTapiDialer::Place(const std::string& number) {
  std::int32_t& line = settings_.tapiLineId;
  panel_.SetTestDialIdle(false);
  panel_.AppendProgress("Öffne TAPI-Line: #" + std::to_string(line));
  panel_.AppendProgress("TAPI-Gerät: " + tapi_.LineName(line));
  panel_.AppendProgress("Gegenstelle wird angewählt: " + number);
  call_.ForgetLineCall();
  // A line that was lost, or left closed by a new list of lines, is opened again.
  if (tapi_.NeedsInitialise()) line = OpenTapiLine(tapi_, line);
  call_.placedCallHandle = tapi_.MakeCall(line, number, kCallOptions);
}

void TrialTapiDialer::Drop() {
  panel_.AppendProgress("Verbindung wird getrennt...");
  try {
    tapi_.DropCall(settings_.tapiLineId, call_.tapiCallHandle);
  } catch (const TapiError& error) {
    // The call has ended by itself at the same moment.
    if (error.Number() != kLineErrorInvalidCall) throw;
  }
  panel_.SetTestDialIdle(true);
}

}  // namespace orvane
