#pragma once

#include <cstdint>
#include <list>
#include <string>
#include <vector>

#include "platform/event_loop.h"
#include "platform/lines/line_event_queue.h"
#include "platform/lines/line_service_provider.h"
#include "platform/lines/linux/baresip_control.h"

namespace orvane {

// The accounts of the user's running baresip as telephone lines, named by their addresses.
//
// A baresip that is not there has no lines; those it turns out to have later are added behind the
// known ones, so this provider is best asked last. While baresip is away its lines stay, and calls
// on them fail; when it goes, their calls end.
class SipLines : public LineServiceProvider, private BaresipControl::Listener {
 public:
  SipLines(EventLoop& loop, CallHandles& handles, BaresipControl::Settings settings);

  // Waits for baresip and its accounts, a second at most.
  void Initialise() override;
  // Hangs up the calls that were dialled here, and waits for that, half a second at most.
  void ShutDown() override;

  int LineCount() const override { return static_cast<int>(lines_.size()); }
  std::string LineName(int line) const override;
  LineInfo Info(int line) const override;
  void OpenLine(int line) override;
  void CloseLine(int line) override;
  std::int32_t MakeCall(int line, const std::string& number) override;
  void DropCall(int line, std::int32_t callHandle) override;
  void SetEvents(TapiEvents* events) override { events_.SetListener(events); }

 private:
  struct Call {
    std::int32_t handle = 0;
    // By this program, not at the telephone itself.
    bool dialled = false;
    // Empty until baresip has named the call.
    std::string id;
    // The latest that was reported.
    std::int32_t state = 0;
    bool hangUp = false;
  };
  struct Line {
    std::string account;
    bool open = false;
    std::list<Call> calls;
  };
  struct Place {
    Line* line = nullptr;
    Call* call = nullptr;
  };
  using Commands = std::vector<BaresipControl::Command>;
  using Answers = BaresipControl::Answers;

  void OnControlUp() override;
  void OnControlLost() override;
  void OnEvent(const BaresipEvent& event) override;

  std::size_t IndexOf(int line) const;
  bool HasDialledCall() const;
  // Both are null when there is no such call any more.
  Place Find(std::int32_t handle);

  void ReportInService();
  void AskAccounts();
  void TakeAccounts(const std::string& reginfo);

  void Dial(std::int32_t handle, const std::string& number);
  void TakeDialled(std::int32_t handle, const Answers& answers);
  void HangUp(const Line& line, Call& call);
  void HangUpFound(std::int32_t handle, Commands select);

  static Call* CallOf(Line& line, const BaresipEvent& event);
  void Follow(Line& line, const BaresipEvent& event, std::int32_t state);
  void Reach(Call& call, std::int32_t state);
  void Close(const Call& call, const std::string& reason);
  void End(std::int32_t handle);
  void Report(std::int32_t handle, std::int32_t state);
  void ReportRefusal(const std::string& reason);

  CallHandles& handles_;
  LineEventQueue events_;
  BaresipControl control_;
  std::vector<Line> lines_;
  bool initialising_ = false;
  bool accountsKnown_ = false;
  bool lost_ = false;
};

}  // namespace orvane
