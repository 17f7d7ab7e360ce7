#include "platform/lines/linux/sip_lines.h"
#include "platform/lines/voice_line_info.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <utility>

#include "platform/errors.h"
#include "platform/lines/line_errors.h"

namespace orvane {
namespace {

constexpr std::chrono::milliseconds kLongestStart{1000};
constexpr std::chrono::milliseconds kLongestHangUp{500};

constexpr std::int32_t kLineDeviceInService = 0x40;
constexpr std::int32_t kLineDeviceOutOfService = 0x80;

// The number as part of a SIP address, where "#" may not stand as it is.
std::string AddressPart(const std::string& number) {
  std::string part;
  for (const char c : number) part += c == '#' ? std::string("%23") : std::string(1, c);
  return part;
}

// Nothing else ever reaches baresip: it would not only take it for part of an address, it also uses
// addresses as format texts.
bool IsDiallable(const std::string& number) {
  return !number.empty() && number.find_first_not_of("0123456789*#") == std::string::npos;
}

// baresip says "ok" even when it finds no such call.
bool Found(const BaresipResponse& answer) {
  return answer.ok && !answer.data.starts_with("call not found");
}

bool IsBusy(const std::string& reason) {
  return reason.starts_with("486") || reason.starts_with("600");
}

}  // namespace

SipLines::SipLines(EventLoop& loop, CallHandles& handles, BaresipControl::Settings settings)
    : handles_(handles), events_(loop), control_(loop, std::move(settings), *this) {}

void SipLines::Initialise() {
  accountsKnown_ = false;
  if (control_.Up()) AskAccounts();
  initialising_ = true;
  control_.Start();
  control_.Wait(kLongestStart, [this] { return accountsKnown_; });
  initialising_ = false;
}

void SipLines::ShutDown() {
  for (Line& line : lines_) {
    for (Call& call : line.calls) {
      if (call.dialled) HangUp(line, call);
    }
  }
  control_.Wait(kLongestHangUp, [this] { return !HasDialledCall(); });
  control_.Stop();
  lines_.clear();
  events_.Clear();
  lost_ = false;
}

std::string SipLines::LineName(int line) const {
  return lines_[IndexOf(line)].account;
}

LineInfo SipLines::Info(int line) const {
  return VoiceLineInfo(LineName(line), "SIP", "SIP-Telefon (baresip)");
}

void SipLines::OpenLine(int line) {
  lines_[IndexOf(line)].open = true;
}

void SipLines::CloseLine(int line) {
  Line& closed = lines_[IndexOf(line)];
  closed.open = false;
  std::vector<std::int32_t> othersCalls;
  for (Call& call : closed.calls) {
    if (call.dialled) {
      HangUp(closed, call);
    } else {
      othersCalls.push_back(call.handle);
    }
  }
  // Whoever took a call at the telephone itself goes on talking.
  for (const std::int32_t handle : othersCalls) End(handle);
}

std::int32_t SipLines::MakeCall(int line, const std::string& number) {
  Line& calling = lines_[IndexOf(line)];
  if (!calling.open) throw MakeLineError(kLineErrorInvalidLine);
  if (!calling.calls.empty()) {
    throw MakeLineError(kLineErrorCallUnavailable);
  }
  if (!IsDiallable(number)) {
    throw MakeLineError(kLineErrorInvalidAddress);
  }
  if (!control_.Up()) {
    throw TapiError(kLineErrorOperationFailed, "Das Telefon (baresip) ist nicht erreichbar.");
  }
  const std::int32_t handle = handles_.Next();
  calling.calls.push_back({handle, true, {}, 0, false});
  control_.Send({{"uafind", calling.account}}, [this, handle, number](const Answers& answers) {
    if (answers.front().ok) {
      Dial(handle, number);
    } else {
      End(handle);
    }
  });
  return handle;
}

void SipLines::DropCall(int line, std::int32_t callHandle) {
  Line& dropped = lines_[IndexOf(line)];
  for (Call& call : dropped.calls) {
    if (call.handle != callHandle && (callHandle != 0 || !call.dialled)) continue;
    HangUp(dropped, call);
    return;
  }
  throw MakeLineError(kLineErrorInvalidCall);
}

std::size_t SipLines::IndexOf(int line) const {
  if (line < 0 || line >= LineCount()) {
    throw MakeLineError(kLineErrorBadDevice);
  }
  return static_cast<std::size_t>(line);
}

bool SipLines::HasDialledCall() const {
  return std::any_of(lines_.begin(), lines_.end(), [](const Line& line) {
    return std::any_of(line.calls.begin(), line.calls.end(),
                       [](const Call& call) { return call.dialled; });
  });
}

SipLines::Place SipLines::Find(std::int32_t handle) {
  for (Line& line : lines_) {
    for (Call& call : line.calls) {
      if (call.handle == handle) return {&line, &call};
    }
  }
  return {};
}

void SipLines::OnControlUp() {
  AskAccounts();
  if (std::exchange(lost_, false)) ReportInService();
}

void SipLines::ReportInService() {
  events_.Add([](TapiEvents& events) {
    events.OnLineMessage("INSERVICE", "TapiLineDevState", kLineDeviceInService);
  });
}

void SipLines::OnControlLost() {
  std::vector<std::int32_t> ended;
  for (const Line& line : lines_) {
    for (const Call& call : line.calls) ended.push_back(call.handle);
  }
  for (const std::int32_t handle : ended) End(handle);
  lost_ = true;
  events_.Add([](TapiEvents& events) {
    events.OnLineMessage("OUTOFSERVICE", "TapiLineDevState", kLineDeviceOutOfService);
  });
}

void SipLines::AskAccounts() {
  control_.Send({{"reginfo", {}}},
                [this](const Answers& answers) { TakeAccounts(answers.front().data); });
}

void SipLines::TakeAccounts(const std::string& reginfo) {
  accountsKnown_ = true;
  const std::size_t before = lines_.size();
  for (const std::string& account : AccountsOf(reginfo)) {
    const bool known = std::any_of(lines_.begin(), lines_.end(), [&account](const Line& line) {
      return line.account == account;
    });
    if (!known) lines_.push_back({account, false, {}});
  }
  // Whoever waits for a line that was not there at the start looks again.
  if (lines_.size() > before && !initialising_) ReportInService();
}

// Selecting and dialling go in one piece: an incoming call selects its own account. That the
// account exists was asked before: if selecting failed, the call would go out from another one.
// "callstat" tells the call's name, without which it could not be told from a call that comes in
// meanwhile.
void SipLines::Dial(std::int32_t handle, const std::string& number) {
  const Place place = Find(handle);
  if (place.call == nullptr) return;
  if (place.call->hangUp) {
    End(handle);
    return;
  }
  control_.Send({{"uafind", place.line->account}, {"dial", AddressPart(number)}, {"callstat", {}}},
                [this, handle](const Answers& answers) { TakeDialled(handle, answers); });
}

void SipLines::TakeDialled(std::int32_t handle, const Answers& answers) {
  const Place place = Find(handle);
  if (place.call == nullptr) return;
  if (!answers[0].ok || !answers[1].ok) {
    End(handle);
    return;
  }
  Call& call = *place.call;
  if (call.id.empty()) call.id = OutgoingCallIdOf(answers[2].data);
  Reach(call, kLineCallDialing);
  if (call.hangUp) HangUp(*place.line, call);
}

void SipLines::HangUp(const Line& line, Call& call) {
  call.hangUp = true;
  // baresip has not answered yet that it dials; it will be told then.
  if (call.state == 0 && call.id.empty()) return;
  Commands select{{"uafind", line.account}};
  if (!call.id.empty()) select.push_back({"callfind", call.id});
  control_.Send(select, [this, handle = call.handle, select](const Answers& answers) {
    if (std::all_of(answers.begin(), answers.end(), Found)) {
      HangUpFound(handle, select);
    } else {
      End(handle);
    }
  });
}

// As with dialling: the call is there, so that "hangup" cannot meet another one, and nothing comes
// between selecting it and hanging up.
void SipLines::HangUpFound(std::int32_t handle, Commands select) {
  select.push_back({"hangup", {}});
  control_.Send(select, [this, handle](const Answers&) { End(handle); });
}

void SipLines::OnEvent(const BaresipEvent& event) {
  static constexpr std::pair<const char*, std::int32_t> kStates[] = {
      {"CALL_OUTGOING", kLineCallDialing},
      {"CALL_PROGRESS", kLineCallRingback},
      {"CALL_RINGING", kLineCallRingback},
      {"CALL_ESTABLISHED", kLineCallConnected}};
  const auto line = std::find_if(lines_.begin(), lines_.end(), [&event](const Line& candidate) {
    return candidate.account == event.account;
  });
  if (line == lines_.end() || event.callId.empty()) return;
  if (event.type == "CALL_CLOSED") {
    if (const Call* call = CallOf(*line, event)) Close(*call, event.param);
    return;
  }
  for (const auto& [type, state] : kStates) {
    if (event.type == type) Follow(*line, event, state);
  }
}

// The known call that an event is about. baresip names a call that was just dialled here with its
// first event, if not before.
SipLines::Call* SipLines::CallOf(Line& line, const BaresipEvent& event) {
  for (Call& call : line.calls) {
    if (call.id == event.callId) return &call;
  }
  for (Call& call : line.calls) {
    if (!call.dialled || !call.id.empty() || event.incoming) continue;
    call.id = event.callId;
    return &call;
  }
  return nullptr;
}

void SipLines::Follow(Line& line, const BaresipEvent& event, std::int32_t state) {
  // A call that comes in is the telephone's affair until somebody has taken it there.
  if (event.incoming && state != kLineCallConnected) return;
  Call* call = CallOf(line, event);
  if (call == nullptr) {
    if (!line.open) return;
    call = &line.calls.emplace_back(Call{handles_.Next(), false, event.callId, 0, false});
  }
  Reach(*call, state);
}

// A call only ever gets further, and the numbers of the states up to "connected" ascend.
void SipLines::Reach(Call& call, std::int32_t state) {
  if (state <= call.state) return;
  if (call.dialled && call.state == 0 && state != kLineCallDialing) {
    Report(call.handle, kLineCallDialing);
  }
  call.state = state;
  Report(call.handle, state);
  if (state != kLineCallConnected) return;
  events_.Add([handle = call.handle](TapiEvents& events) { events.OnConnected(handle); });
}

void SipLines::Close(const Call& call, const std::string& reason) {
  if (call.state != kLineCallConnected) {
    if (IsBusy(reason)) {
      Report(call.handle, kLineCallBusy);
      events_.Add([handle = call.handle](TapiEvents& events) { events.OnBusy(handle); });
    } else if (call.dialled && !call.hangUp) {
      ReportRefusal(reason);
    }
  }
  End(call.handle);
}

// Why a call did not come about: a number of the far side's with its words, or baresip's words.
void SipLines::ReportRefusal(const std::string& reason) {
  events_.Add([reason](TapiEvents& events) {
    events.OnLineMessage("REFUSED", "SIP: " + reason, std::atoi(reason.c_str()));
  });
}

// Frees the line and reports the end, if the call is still there.
void SipLines::End(std::int32_t handle) {
  const Place place = Find(handle);
  if (place.call == nullptr) return;
  place.line->calls.remove_if([handle](const Call& call) { return call.handle == handle; });
  Report(handle, kLineCallDisconnected);
  events_.Add([handle](TapiEvents& events) { events.OnDisconnected(handle); });
  Report(handle, kLineCallIdle);
}

void SipLines::Report(std::int32_t handle, std::int32_t state) {
  events_.Add([handle, state](TapiEvents& events) { events.OnCallState(handle, handle, state); });
}

}  // namespace orvane
