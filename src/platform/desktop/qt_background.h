#pragma once

#include <QObject>
#include <memory>

#include "platform/background.h"

namespace orvane {

// A thread of its own for the work. Needs the application object; lives on the window's thread.
class QtBackground : public Background {
 public:
  QtBackground();
  // What is not done by now is left undone, and the thread to itself if it hangs.
  ~QtBackground() override;
  QtBackground(const QtBackground&) = delete;
  QtBackground& operator=(const QtBackground&) = delete;

  void Do(Task work) override;
  void Tell(Task task) override;
  bool Finish(std::chrono::milliseconds within) override;

 private:
  class Worker;

  // Tasks for the window die with it.
  QObject window_;
  std::shared_ptr<Worker> worker_;
};

}  // namespace orvane
