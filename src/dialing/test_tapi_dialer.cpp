#include "dialing/test_tapi_dialer.h"

#include <exception>

#include "app/error_report.h"
#include "app/init_settings.h"
#include "platform/errors.h"
#include "platform/tapi_control.h"

namespace orvane {
namespace {

constexpr std::int16_t kCallOptions = 0;

}  // namespace

void TestTapiDialer::TestDialTapi(const std::string& number) {
  panel_.SetTestDialEnabled(false);
  try {
    if (panel_.TestDialPressed()) {
      Drop();
    } else {
      Place(number);
    }
  } catch (const std::exception& error) {
    panel_.SetTestDialIdle(true);
    ShowError(services_.prompts, ErrorStateOf(error), "TAPI-Testwahl");
  }
  panel_.SetTestDialEnabled(true);
}

void TestTapiDialer::Place(const std::string& number) {
  TapiControl& tapi = services_.tapi;
  std::int32_t& line = state_.settings.tapiLineId;
  panel_.SetTestDialIdle(false);
  panel_.AppendProgress("Öffne TAPI-Line: #" + std::to_string(line));
  panel_.AppendProgress("TAPI-Gerät: " + tapi.LineName(line));
  panel_.AppendProgress("Gegenstelle wird angewählt: " + number);
  call_.ForgetLineCall();
  // A line that was lost, or left closed by a new list of lines, is opened again.
  if (!TapiInitialised(tapi)) OpenTapiLine(tapi, line);
  std::string dialString = number;
  call_.placedCallHandle = tapi.MakeCall(line, dialString, kCallOptions);
}

void TestTapiDialer::Drop() {
  panel_.AppendProgress("Verbindung wird getrennt...");
  try {
    services_.tapi.DropCall(state_.settings.tapiLineId, call_.tapiCallHandle);
  } catch (const TapiError& error) {
    // The call has ended by itself at the same moment.
    if (error.Number() != kLineErrorInvalidCall) throw;
  }
  panel_.SetTestDialIdle(true);
}

}  // namespace orvane
