#pragma once

#include <QTimer>
#include <deque>

#include "platform/event_loop.h"

namespace orvane {

// The toolkit's event loop. Needs the application object; lives on its thread.
class QtEventLoop : public EventLoop {
 public:
  QtEventLoop();

  void Post(Task task) override;
  [[nodiscard]] std::unique_ptr<Timer> After(std::chrono::milliseconds delay, Task task) override;
  void RunPendingOnce() override;
  void Quit() override;

  // Runs until Quit and returns the process's exit code; returns at once when Quit came before.
  int Run();

 private:
  void RunPosted();

  std::deque<Task> posted_;
  // Fires once a turn of the loop. Posted events would not do: the loop sends those that arrive
  // meanwhile in the same turn, so a task that posts itself again would never let go.
  QTimer turn_;
  bool quit_ = false;
};

}  // namespace orvane
