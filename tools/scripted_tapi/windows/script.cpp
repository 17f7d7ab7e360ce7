#include "script.h"

#include <algorithm>
#include <utility>

namespace orvane {
namespace {

constexpr UINT kDeliver = WM_APP;
constexpr DWORD kVersions[ScriptedTapi::kFirstDevices] = {0x00020001, 0, 0x00010004};

LONG Error(DWORD result) {
  return static_cast<LONG>(result);
}

}  // namespace

Script& TheScript() {
  static Script script;
  return script;
}

void Script::Reset() {
  Stop();
  manner = {};
  results = {};
  dialogs.clear();
  misuses.clear();
  devices_.clear();
  for (const DWORD version : kVersions) {
    devices_.push_back({version, L"Karte " + std::to_wstring(devices_.size())});
  }
  devices_[kExchange].name = L"Telefonanlage Büro";
}

int Script::LeftOver() const {
  return static_cast<int>(std::count_if(calls_.begin(), calls_.end(), [](const Call& call) {
    return call.state == LINECALLSTATE_DISCONNECTED || call.state == LINECALLSTATE_IDLE;
  }));
}

void Script::Start(LINECALLBACK callback) {
  callback_ = callback;
  window_ =
      CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
  SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
}

void Script::Stop() {
  if (window_ != nullptr) DestroyWindow(std::exchange(window_, nullptr));
  stale_ = false;
  records_.clear();
  calls_.clear();
  for (Device& device : devices_) device.line = 0;
}

DWORD Script::VersionOf(DWORD device) const {
  return device < devices_.size() ? devices_[device].version : 0;
}

LONG Script::Open(DWORD device, DWORD version, DWORD_PTR instance, HLINE* line) {
  if (version == 0 || version != VersionOf(device)) return Misuse("open", LINEERR_BADDEVICEID);
  if (stale_) return Error(LINEERR_REINIT);
  if (results.open != 0) return results.open;
  if (manner.growsWhileOpening) {
    callback_(0, LINE_CREATE, 0, NewDevice(L"Karte " + std::to_wstring(DeviceCount())), 0, 0);
  }
  devices_[device].line = *line = ++lastHandle_;
  devices_[device].instance = instance;
  return 0;
}

LONG Script::Close(HLINE line) {
  const Device* const device = FindLine(line);
  if (device == nullptr) return Misuse("close", LINEERR_INVALLINEHANDLE);
  ForgetLine(static_cast<DWORD>(device - devices_.data()));
  return 0;
}

LONG Script::MakeCall(HLINE line, HCALL* place, const std::wstring& number) {
  const Device* const device = FindLine(line);
  if (device == nullptr) return Misuse("makeCall", LINEERR_INVALLINEHANDLE);
  if (results.makeCall != 0) return results.makeCall;
  const auto id = static_cast<DWORD>(device - devices_.data());
  if (std::any_of(calls_.begin(), calls_.end(), [id](const Call& call) {
        return call.device == id && call.state != LINECALLSTATE_IDLE;
      })) {
    return Error(LINEERR_CALLUNAVAIL);
  }
  const LONG request = ++lastRequest_;
  if (results.dialReply != 0) {
    SendReply(request, results.dialReply, nullptr, 0);
    return request;
  }
  const Call& call = calls_.emplace_back(Call{id, ++lastHandle_, LINECALLPRIVILEGE_OWNER});
  if (!manner.statesBeforeReply) SendReply(request, 0, place, call.handle);
  SendState(call, LINECALLSTATE_DIALING);
  SendCourse(call, number);
  if (manner.statesBeforeReply) SendReply(request, 0, place, call.handle);
  return request;
}

LONG Script::Own(HCALL handle) {
  Call* const call = Find(handle);
  if (call == nullptr) return Misuse("setCallPrivilege", LINEERR_INVALCALLHANDLE);
  call->privilege = LINECALLPRIVILEGE_OWNER;
  return 0;
}

LONG Script::Drop(HCALL handle) {
  const Call* const call = Find(handle);
  if (call == nullptr) return Misuse("drop", LINEERR_INVALCALLHANDLE);
  if (call->privilege != LINECALLPRIVILEGE_OWNER) return Error(LINEERR_NOTOWNER);
  if (call->state == LINECALLSTATE_IDLE) return Error(LINEERR_INVALCALLSTATE);
  if (results.drop != 0) return results.drop;
  const LONG request = ++lastRequest_;
  if (results.dropReply == 0) {
    std::erase_if(records_, [handle](const Record& record) {
      return record.message.dwMessageID == LINE_CALLSTATE && record.message.hDevice == handle;
    });
  }
  SendReply(request, results.dropReply, nullptr, 0);
  if (results.dropReply != 0) return request;
  if (!manner.abruptEnds && call->state != LINECALLSTATE_DISCONNECTED) {
    const bool isBusy = call->state == LINECALLSTATE_BUSY;
    SendState(*call, LINECALLSTATE_DISCONNECTED,
              isBusy ? LINEDISCONNECTMODE_BUSY : LINEDISCONNECTMODE_NORMAL);
  }
  SendState(*call, LINECALLSTATE_IDLE);
  return request;
}

LONG Script::Deallocate(HCALL handle) {
  const Call* const call = Find(handle);
  if (call == nullptr) return Misuse("deallocateCall", LINEERR_INVALCALLHANDLE);
  if (call->state != LINECALLSTATE_IDLE && call->privilege == LINECALLPRIVILEGE_OWNER) {
    return Misuse("deallocateCall", LINEERR_INVALCALLSTATE);
  }
  calls_.remove_if([handle](const Call& candidate) { return candidate.handle == handle; });
  return 0;
}

LONG Script::Misuse(const char* what, DWORD result) {
  misuses.emplace_back(what);
  return Error(result);
}

void Script::CloseLine(DWORD device) {
  const Device closed = devices_.at(device);
  ForgetLine(device);
  Send({{closed.line, LINE_CLOSE, closed.instance, 0, 0, 0}});
}

DWORD Script::AddDevice() {
  const DWORD device = NewDevice(L"Karte " + std::to_wstring(DeviceCount()));
  Send({{0, LINE_CREATE, 0, device, 0, 0}});
  return device;
}

DWORD Script::ReturnDevice(DWORD removed) {
  const DWORD device = NewDevice(NameOf(removed));
  Send({{0, LINE_CREATE, 0, device, 0, 0}});
  return device;
}

void Script::AskForRenewal() {
  stale_ = true;
  Send({{0, LINE_LINEDEVSTATE, 0, LINEDEVSTATE_REINIT, 0, 0}});
}

void Script::RemoveDevice(DWORD device) {
  ForgetLine(device);
  devices_.at(device).version = 0;
  Send({{0, LINE_REMOVE, 0, device, 0, 0}});
}

void Script::ForeignCall(DWORD device, const std::vector<DWORD>& states) {
  const Device& on = devices_.at(device);
  const Call& call = calls_.emplace_back(Call{device, ++lastHandle_, LINECALLPRIVILEGE_MONITOR});
  Send({{on.line, LINE_APPNEWCALL, on.instance, 0, call.handle, call.privilege}});
  for (const DWORD state : states) SendState(call, state);
}

LRESULT CALLBACK Script::Procedure(HWND window, UINT message, WPARAM word, LPARAM parameter) {
  if (message != kDeliver) return DefWindowProcW(window, message, word, parameter);
  TheScript().Deliver();
  return 0;
}

void Script::Send(const Record& record) {
  records_.push_back(record);
  PostMessageW(window_, kDeliver, 0, 0);
}

void Script::SendState(const Call& call, DWORD state, DWORD mode) {
  Send({{call.handle, LINE_CALLSTATE, devices_[call.device].instance, state, mode, 0}});
}

void Script::SendReply(LONG request, LONG result, HCALL* place, HCALL handle) {
  Send({{0, LINE_REPLY, 0, static_cast<DWORD_PTR>(request), static_cast<DWORD>(result), 0},
        place,
        handle});
}

void Script::SendEnd(const Call& call, DWORD mode) {
  SendState(call, manner.abruptEnds ? LINECALLSTATE_IDLE : LINECALLSTATE_DISCONNECTED, mode);
}

void Script::SendCourse(const Call& call, const std::wstring& number) {
  const auto endsWith = [&number](const wchar_t* digits) { return number.ends_with(digits); };
  if (endsWith(L"99906")) return SendEnd(call, LINEDISCONNECTMODE_BADADDRESS);
  if (endsWith(L"99901") && manner.busyTone) return SendState(call, LINECALLSTATE_BUSY);
  if (endsWith(L"99901")) {
    return SendState(call, LINECALLSTATE_DISCONNECTED, LINEDISCONNECTMODE_BUSY);
  }
  SendState(call, LINECALLSTATE_RINGBACK);
  SendState(call, LINECALLSTATE_RINGBACK);
  if (endsWith(L"99902")) return;
  if (endsWith(L"99903")) return SendEnd(call, LINEDISCONNECTMODE_REJECT);
  SendState(call, LINECALLSTATE_CONNECTED, LINECONNECTEDMODE_ACTIVE);
  if (endsWith(L"99905")) SendEnd(call, LINEDISCONNECTMODE_NORMAL);
}

void Script::Deliver() {
  if (records_.empty()) return;
  Record record = records_.front();
  records_.pop_front();
  LINEMESSAGE& message = record.message;
  if (record.place != nullptr) {
    *record.place = record.handle;
    if (Call* const call = Find(record.handle)) call->isKnown = true;
  }
  if (message.dwMessageID == LINE_CALLSTATE) {
    Call& call = *Find(message.hDevice);
    call.state = static_cast<DWORD>(message.dwParam1);
    // The first message about a handle says whose call it is.
    if (!std::exchange(call.isKnown, true)) message.dwParam3 = call.privilege;
  }
  callback_(message.hDevice, message.dwMessageID, message.dwCallbackInstance, message.dwParam1,
            message.dwParam2, message.dwParam3);
}

DWORD Script::NewDevice(const std::wstring& name) {
  devices_.push_back({kVersions[kExchange], name});
  return DeviceCount() - 1;
}

// Its calls and what was still to be told about them are gone.
void Script::ForgetLine(DWORD device) {
  devices_.at(device).line = 0;
  for (const Call& call : calls_) {
    if (call.device != device) continue;
    std::erase_if(records_, [&call](const Record& record) {
      return record.message.hDevice == call.handle || record.handle == call.handle;
    });
  }
  calls_.remove_if([device](const Call& call) { return call.device == device; });
}

Script::Call* Script::Find(HCALL handle) {
  const auto found = std::find_if(calls_.begin(), calls_.end(),
                                  [handle](const Call& call) { return call.handle == handle; });
  return found == calls_.end() ? nullptr : &*found;
}

Script::Device* Script::FindLine(HLINE line) {
  const auto found = std::find_if(devices_.begin(), devices_.end(), [line](const Device& device) {
    return line != 0 && device.line == line;
  });
  return found == devices_.end() ? nullptr : &*found;
}

}  // namespace orvane
