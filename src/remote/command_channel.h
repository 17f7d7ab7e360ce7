#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "app/program_state.h"
#include "app/work_queue.h"
#include "dialing/session.h"
#include "platform/event_loop.h"
#include "platform/host_channel.h"
#include "platform/prompts.h"
#include "platform/support_log.h"
#include "remote/remote_panel.h"

namespace orvane {

// How the dial window's caption begins, by which other programs find it.
inline constexpr std::string_view kDialWindowCaption = "TALMIX_BRISKO";

// The host's commands: receives them while the dial window is hooked, and runs them.
class CommandChannel {
 public:
  // Everything referred to outlives the channel.
  CommandChannel(HostChannel& channel, EventLoop& loop, Prompts& prompts, SupportLog& log,
                 ProgramState& state, Session& session, WorkQueue& queue, RemotePanel& panel)
      : channel_(channel),
        loop_(loop),
        prompts_(prompts),
        log_(log),
        state_(state),
        session_(session),
        queue_(queue),
        panel_(panel) {}

  // Receives commands for the window, given by its native handle and caption. A second call while
  // hooked does nothing.
  void HookWindow(std::uintptr_t window, const std::string& caption);
  void UnhookWindow();

  // One received record: its text becomes the command array and is run.
  void OnCopyData(const CopyData& data);

  // Runs the command array, HostEnvironment::startArgs. An error ends it silently.
  void ExecuteCommands();

 private:
  void RunCommands();
  void SetUser(std::int32_t number);
  void Dial(const std::string& parameterText);

  HostChannel& channel_;
  EventLoop& loop_;
  Prompts& prompts_;
  SupportLog& log_;
  ProgramState& state_;
  Session& session_;
  WorkQueue& queue_;
  RemotePanel& panel_;
  bool hooked_ = false;
  // Counts the messages, so that an outer run notices that its commands were replaced.
  unsigned generation_ = 0;
};

}  // namespace orvane
