#include "platform/lines/windows/tapi32_calls.h"

#include <algorithm>
#include <utility>

#include "platform/lines/line_errors.h"
#include "platform/lines/windows/tapi32_errors.h"
#include "platform/system/windows/wide_text.h"

namespace orvane {
namespace {

constexpr auto kInvalidCallState = static_cast<std::int32_t>(LINEERR_INVALCALLSTATE);

// TAPI passes 32-bit values in parameters as wide as pointers.
std::int32_t Number(DWORD_PTR parameter) {
  return static_cast<std::int32_t>(static_cast<DWORD>(parameter));
}

}  // namespace

std::int32_t Tapi32Calls::Dial(int line, HLINE device, const std::string& number) {
  if (HasDialled(line)) throw MakeLineError(kLineErrorCallUnavailable);
  Call& call = calls_.emplace_back();
  const std::int32_t result = api_.makeCall(device, &call.call, ToWide(number).c_str(), 0, nullptr);
  if (result < 0) {
    calls_.pop_back();
    throw MakeLineError(result);
  }
  call.line = line;
  call.handle = handles_.Next();
  call.dialled = true;
  call.dialRequest = result;
  return call.handle;
}

void Tapi32Calls::Drop(int line, std::int32_t handle) {
  const auto found = std::find_if(calls_.begin(), calls_.end(), [&](const Call& call) {
    return call.line == line && !call.ended && (handle == 0 ? call.dialled : call.handle == handle);
  });
  if (found == calls_.end()) {
    throw MakeLineError(kLineErrorInvalidCall);
  }
  const std::int32_t result = RequestDrop(*found);
  // It has ended by itself, and the message that says so is on its way.
  if (result == kInvalidCallState) {
    throw MakeLineError(kLineErrorInvalidCall);
  }
  Checked(result);
}

void Tapi32Calls::EndAll(int line) {
  for (auto call = calls_.begin(); call != calls_.end();) {
    Call& ended = *call++;
    if (ended.line != line) continue;
    End(ended);
    Release(ended);
  }
}

bool Tapi32Calls::Any() const {
  return std::any_of(calls_.begin(), calls_.end(), [](const Call& call) { return !call.ended; });
}

void Tapi32Calls::OnReply(const LINEMESSAGE& message) {
  const std::int32_t request = Number(message.dwParam1);
  const std::int32_t result = Number(message.dwParam2);
  for (Call& call : calls_) {
    if (request == call.dialRequest) return TakeDialReply(call, result);
    if (request == call.dropRequest) return TakeDropReply(call, result);
  }
}

void Tapi32Calls::OnNewCall(int line, const LINEMESSAGE& message) {
  TakeCall(line, static_cast<HCALL>(message.dwParam2), false);
}

void Tapi32Calls::OnState(int line, const LINEMESSAGE& message) {
  Call* const call = FindCall(line, message);
  if (call == nullptr) return;
  const std::int32_t state = Number(message.dwParam1);
  if (!call->ended) Follow(*call, state, static_cast<DWORD>(message.dwParam2));
  if (state != kLineCallIdle) return;
  api_.deallocateCall(call->call);
  Release(*call);
}

Tapi32Calls::Call* Tapi32Calls::FindCall(int line, const LINEMESSAGE& message) {
  for (Call& call : calls_) {
    if (call.confirmed && !call.released && call.call == message.hDevice) return &call;
  }
  // The privilege stands in the first message about a call only.
  if (message.dwParam3 == 0) return nullptr;
  return &TakeCall(line, message.hDevice, message.dwParam3 == LINECALLPRIVILEGE_OWNER);
}

// Only what was dialled here is owned here: such a call is the one that TAPI has yet to confirm.
Tapi32Calls::Call& Tapi32Calls::TakeCall(int line, HCALL handle, bool isOwner) {
  const auto dialled = std::find_if(calls_.begin(), calls_.end(), [line](const Call& call) {
    return call.line == line && !call.confirmed && !call.released;
  });
  const bool isDialled = isOwner && dialled != calls_.end();
  Call& call = isDialled ? *dialled : calls_.emplace_back();
  if (!isDialled) {
    call.line = line;
    call.handle = handles_.Next();
  }
  call.call = handle;
  call.confirmed = true;
  if (call.dropWanted) DropOrReport(call);
  return call;
}

bool Tapi32Calls::HasDialled(int line) const {
  return std::any_of(calls_.begin(), calls_.end(), [line](const Call& call) {
    return call.line == line && call.dialled && !call.ended;
  });
}

std::int32_t Tapi32Calls::RequestDrop(Call& call) {
  call.dropWanted = true;
  if (!call.confirmed) return 0;
  if (!call.dialled) {
    const std::int32_t owned = api_.setCallPrivilege(call.call, LINECALLPRIVILEGE_OWNER);
    if (owned < 0) return owned;
  }
  const std::int32_t request = api_.drop(call.call, nullptr, 0);
  call.dropRequest = std::max(request, 0);
  return request;
}

void Tapi32Calls::DropOrReport(Call& call) {
  const std::int32_t result = RequestDrop(call);
  if (result < 0 && result != kInvalidCallState) ReportFailure("TapiLineDrop", result);
}

void Tapi32Calls::TakeDialReply(Call& call, std::int32_t result) {
  call.dialRequest = 0;
  if (result < 0) {
    if (!call.ended) ReportFailure("TapiMakeCall", result);
    End(call);
    Release(call);
    return;
  }
  if (call.released) {
    Release(call);
    return;
  }
  const bool isNews = !call.confirmed;
  call.confirmed = true;
  if (isNews && call.dropWanted) DropOrReport(call);
}

void Tapi32Calls::TakeDropReply(Call& call, std::int32_t result) {
  call.dropRequest = 0;
  if (result < 0 && result != kInvalidCallState && !call.ended) {
    ReportFailure("TapiLineDrop", result);
  }
}

void Tapi32Calls::Follow(Call& call, std::int32_t state, DWORD mode) {
  const std::int32_t before = std::exchange(call.state, state);
  if (state == before) return;
  switch (state) {
    case kLineCallIdle:
      End(call);
      break;
    case kLineCallDisconnected:
      if (mode == LINEDISCONNECTMODE_BUSY && before != kLineCallBusy) ReportBusy(call);
      ReportRefusal(call, mode);
      End(call);
      // Some drivers let a call go only when it is dropped here too.
      if (call.dialled) RequestDrop(call);
      break;
    case kLineCallBusy:
      ReportBusy(call);
      // Otherwise the busy tone would sound on.
      if (call.dialled) DropOrReport(call);
      break;
    case kLineCallConnected:
      Connect(call);
      break;
    default:
      // Until it is connected, somebody else's call is not this program's affair.
      if (call.dialled || call.wasConnected) Report(call, state);
  }
}

void Tapi32Calls::Connect(Call& call) {
  Report(call, kLineCallConnected);
  // Not again after a call was on hold.
  if (std::exchange(call.wasConnected, true)) return;
  events_.Add([handle = call.handle](TapiEvents& events) { events.OnConnected(handle); });
}

void Tapi32Calls::ReportBusy(const Call& call) {
  if (!call.dialled) return;
  Report(call, kLineCallBusy);
  events_.Add([handle = call.handle](TapiEvents& events) { events.OnBusy(handle); });
}

void Tapi32Calls::Report(const Call& call, std::int32_t state) {
  events_.Add([handle = call.handle, state](TapiEvents& events) {
    events.OnCallState(handle, handle, state);
  });
}

void Tapi32Calls::ReportFailure(const std::string& function, std::int32_t result) {
  events_.Add(
      [function, result](TapiEvents& events) { events.OnLineMessage("FAILED", function, result); });
}

// Why a call that was dialled here did not come about, when it was not simply busy.
void Tapi32Calls::ReportRefusal(const Call& call, DWORD mode) {
  if (!call.dialled || call.dropWanted || call.wasConnected || mode <= LINEDISCONNECTMODE_NORMAL ||
      mode == LINEDISCONNECTMODE_BUSY) {
    return;
  }
  events_.Add([mode](TapiEvents& events) {
    events.OnLineMessage("REFUSED", "TapiMakeCall", static_cast<std::int32_t>(mode));
  });
}

// All of the end at once, so that no other call begins in between: TAPI's "idle" may come much
// later than its "disconnected", and some drivers leave out the latter.
void Tapi32Calls::End(Call& call) {
  if (std::exchange(call.ended, true)) return;
  if (!call.dialled && !call.wasConnected) return;
  Report(call, kLineCallDisconnected);
  events_.Add([handle = call.handle](TapiEvents& events) { events.OnDisconnected(handle); });
  Report(call, kLineCallIdle);
}

void Tapi32Calls::Release(Call& call) {
  call.released = true;
  if (call.dialRequest != 0) return;
  calls_.remove_if([&call](const Call& candidate) { return &candidate == &call; });
}

}  // namespace orvane
