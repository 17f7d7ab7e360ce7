#pragma once

#include <cstdint>
#include <list>
#include <string>

#include "platform/lines/line_event_queue.h"
#include "platform/lines/line_service_provider.h"
#include "platform/lines/windows/tapi32_api.h"

namespace orvane {

// The calls on the open TAPI lines: those dialled here from the request to dial on, those of others
// from when they are connected.
class Tapi32Calls {
 public:
  // The API is loaded before the first call.
  Tapi32Calls(const Tapi32Api& api, LineEventQueue& events, CallHandles& handles)
      : api_(api), events_(events), handles_(handles) {}

  // `line` is this program's number of the line, `device` TAPI's handle of it. TapiError when the
  // line is busy or TAPI refuses at once; a refusal that comes later is a line message and the end
  // of the call. Gives this program's number of the call.
  std::int32_t Dial(int line, HLINE device, const std::string& number);
  // TapiError when there is no such call or TAPI refuses at once. A call that TAPI has not
  // confirmed yet is dropped when it has.
  void Drop(int line, std::int32_t handle);
  // The line is closed, and TAPI has taken back its calls.
  void EndAll(int line);
  // Whether a call is on its way or going on.
  bool Any() const;
  // TAPI was shut down: no more events.
  void Clear() { calls_.clear(); }

  void OnReply(const LINEMESSAGE& message);
  // A call that came up without this program.
  void OnNewCall(int line, const LINEMESSAGE& message);
  void OnState(int line, const LINEMESSAGE& message);

 private:
  struct Call {
    int line = 0;
    // This program's number.
    std::int32_t handle = 0;
    bool dialled = false;
    // TAPI's handle; nothing may be asked of it before it is confirmed.
    HCALL call = 0;
    bool confirmed = false;
    // The requests that TAPI has not answered, 0 for none.
    std::int32_t dialRequest = 0;
    std::int32_t dropRequest = 0;
    std::int32_t state = 0;
    bool wasConnected = false;
    bool dropWanted = false;
    bool ended = false;
    // TAPI's handle is worth nothing any more.
    bool released = false;
  };
  // TAPI writes into a call's record later on, so its place must not change.
  using Calls = std::list<Call>;

  // Of the handle that the message is about; a new one where TAPI tells of it for the first time.
  Call* FindCall(int line, const LINEMESSAGE& message);
  Call& TakeCall(int line, HCALL call, bool isOwner);
  bool HasDialled(int line) const;
  // TAPI's result.
  std::int32_t RequestDrop(Call& call);
  void DropOrReport(Call& call);

  void TakeDialReply(Call& call, std::int32_t result);
  void TakeDropReply(Call& call, std::int32_t result);
  void Follow(Call& call, std::int32_t state, DWORD mode);
  void Connect(Call& call);
  void ReportBusy(const Call& call);
  void Report(const Call& call, std::int32_t state);
  void ReportFailure(const std::string& function, std::int32_t result);
  void ReportRefusal(const Call& call, DWORD mode);
  void End(Call& call);
  // Forgets the call as soon as TAPI has answered the request to dial it.
  void Release(Call& call);

  const Tapi32Api& api_;
  LineEventQueue& events_;
  CallHandles& handles_;
  Calls calls_;
};

}  // namespace orvane
