#pragma once

#include <array>
#include <chrono>
#include <memory>
#include <string>

#include "platform/event_loop.h"
#include "platform/lines/line_service_provider.h"

namespace orvane {

// Two lines without a telephone behind them, for demonstrations and tests. The end of the number
// decides the course of a call:
//   99901 busy, 99902 no answer until dropped, 99903 rejected, 99904 the line is lost in mid-call,
//   99905 the far end hangs up, 99906 number unknown; every other number rings and answers.
class SimulatedLines : public LineServiceProvider {
 public:
  // How long each step of a call takes.
  struct Times {
    std::chrono::milliseconds toRing{300};
    std::chrono::milliseconds ringing{1500};
    std::chrono::milliseconds talking{4000};
    std::chrono::milliseconds hangUp{150};
  };

  SimulatedLines(EventLoop& loop, CallHandles& handles, Times times);

  void Initialise() override { initialised_ = true; }
  void ShutDown() override;
  int LineCount() const override { return initialised_ ? kLineCount : 0; }
  std::string LineName(int line) const override;
  LineInfo Info(int line) const override;
  void OpenLine(int line) override;
  void CloseLine(int line) override;
  std::int32_t MakeCall(int line, const std::string& number) override;
  void DropCall(int line, std::int32_t callHandle) override;
  void SetEvents(TapiEvents* events) override { events_ = events; }

 private:
  static constexpr int kLineCount = 2;
  enum class Course { kAnswered, kBusy, kNoAnswer, kRejected, kLineLost, kFarEndHangsUp, kUnknown };

  struct Line {
    bool open = false;
    std::int32_t call = 0;
    Course course = Course::kAnswered;
    // The next step of the call, or nothing when it waits for the user.
    std::unique_ptr<EventLoop::Timer> next;
  };

  Line& At(int line);
  void After(Line& line, std::chrono::milliseconds delay, void (SimulatedLines::*step)(Line&));
  void Dial(Line& line);
  void Ring(Line& line);
  void Answer(Line& line);
  void Busy(Line& line);
  void LoseLine(Line& line);
  void End(Line& line);
  void State(std::int32_t call, std::int32_t state);
  static Course CourseOf(const std::string& number);

  EventLoop& loop_;
  CallHandles& handles_;
  Times times_;
  TapiEvents* events_ = nullptr;
  bool initialised_ = false;
  std::array<Line, kLineCount> lines_;
};

}  // namespace orvane
