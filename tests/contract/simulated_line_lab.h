#pragma once

#include "contract/line_lab.h"
#include "fakes/hand_loop.h"
#include "platform/lines/simulated_lines.h"

namespace orvane {

class SimulatedLineLab : public LineLab {
 public:
  LineServiceProvider& Provider() override { return lines_; }
  bool RunUntil(const std::function<bool()>& condition) override {
    for (int step = 0; step < 200 && !condition(); ++step) {
      loop_.Advance(std::chrono::milliseconds(50));
    }
    return condition();
  }
  void Settle() override { loop_.Advance(std::chrono::seconds(30)); }

 private:
  HandLoop loop_;
  CallHandles handles_;
  SimulatedLines lines_{loop_, handles_, {}};
};

}  // namespace orvane
