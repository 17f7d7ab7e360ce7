#include "platform/lines/simulated_lines.h"
#include "platform/lines/voice_line_info.h"

#include <utility>

#include "platform/lines/line_errors.h"

namespace orvane {

SimulatedLines::SimulatedLines(EventLoop& loop, CallHandles& handles, Times times)
    : loop_(loop), handles_(handles), times_(times) {}

void SimulatedLines::ShutDown() {
  initialised_ = false;
  for (Line& line : lines_) line = Line();
}

std::string SimulatedLines::LineName(int line) const {
  if (line < 0 || line >= LineCount()) {
    throw MakeLineError(kLineErrorBadDevice);
  }
  return "Simulierte Leitung " + std::to_string(line + 1);
}

LineInfo SimulatedLines::Info(int line) const {
  return VoiceLineInfo(LineName(line), "Simulation", "Simulierte Leitungen");
}

void SimulatedLines::OpenLine(int line) {
  At(line).open = true;
}

void SimulatedLines::CloseLine(int line) {
  Line& closed = At(line);
  closed.open = false;
  if (closed.call != 0) After(closed, std::chrono::milliseconds(0), &SimulatedLines::End);
}

std::int32_t SimulatedLines::MakeCall(int line, const std::string& number) {
  Line& calling = At(line);
  if (!calling.open) throw MakeLineError(kLineErrorInvalidLine);
  if (calling.call != 0) throw MakeLineError(kLineErrorCallUnavailable);
  calling.call = handles_.Next();
  calling.course = CourseOf(number);
  After(calling, times_.toRing, &SimulatedLines::Dial);
  return calling.call;
}

void SimulatedLines::DropCall(int line, std::int32_t callHandle) {
  Line& dropped = At(line);
  if (dropped.call == 0 || (callHandle != 0 && callHandle != dropped.call)) {
    throw MakeLineError(kLineErrorInvalidCall);
  }
  After(dropped, times_.hangUp, &SimulatedLines::End);
}

SimulatedLines::Line& SimulatedLines::At(int line) {
  if (line < 0 || line >= LineCount()) {
    throw MakeLineError(kLineErrorBadDevice);
  }
  return lines_[static_cast<std::size_t>(line)];
}

void SimulatedLines::After(Line& line, std::chrono::milliseconds delay,
                           void (SimulatedLines::*step)(Line&)) {
  line.next = loop_.After(delay, [this, &line, step] { (this->*step)(line); });
}

// Each step plans the next one before it tells anyone: who hears an event may end the call at once.
void SimulatedLines::Dial(Line& line) {
  switch (line.course) {
    case Course::kUnknown:
    case Course::kRejected:
      After(line, times_.toRing, &SimulatedLines::End);
      break;
    case Course::kBusy:
      After(line, times_.toRing, &SimulatedLines::Busy);
      break;
    default:
      After(line, times_.toRing, &SimulatedLines::Ring);
  }
  State(line.call, kLineCallDialing);
}

void SimulatedLines::Ring(Line& line) {
  line.next.reset();
  if (line.course != Course::kNoAnswer) After(line, times_.ringing, &SimulatedLines::Answer);
  State(line.call, kLineCallRingback);
}

void SimulatedLines::Answer(Line& line) {
  line.next.reset();
  if (line.course == Course::kFarEndHangsUp) After(line, times_.talking, &SimulatedLines::End);
  if (line.course == Course::kLineLost) After(line, times_.talking, &SimulatedLines::LoseLine);
  const std::int32_t call = line.call;
  State(call, kLineCallConnected);
  if (events_ != nullptr) events_->OnConnected(call);
}

void SimulatedLines::Busy(Line& line) {
  After(line, times_.ringing, &SimulatedLines::End);
  const std::int32_t call = line.call;
  State(call, kLineCallBusy);
  if (events_ != nullptr) events_->OnBusy(call);
}

void SimulatedLines::LoseLine(Line& line) {
  line.open = false;
  End(line);
  if (events_ != nullptr) events_->OnLineMessage("SUCCESS", "TapiLineClose", 0);
}

// The line is free before the events go out: whoever hears them may dial again.
void SimulatedLines::End(Line& line) {
  line.next.reset();
  const std::int32_t call = std::exchange(line.call, 0);
  State(call, kLineCallDisconnected);
  if (events_ != nullptr) events_->OnDisconnected(call);
  State(call, kLineCallIdle);
}

void SimulatedLines::State(std::int32_t call, std::int32_t state) {
  if (events_ != nullptr) events_->OnCallState(call, call, state);
}

SimulatedLines::Course SimulatedLines::CourseOf(const std::string& number) {
  static constexpr std::pair<const char*, Course> kEndings[] = {
      {"99901", Course::kBusy},     {"99902", Course::kNoAnswer},      {"99903", Course::kRejected},
      {"99904", Course::kLineLost}, {"99905", Course::kFarEndHangsUp}, {"99906", Course::kUnknown}};
  for (const auto& [ending, course] : kEndings) {
    if (number.ends_with(ending)) return course;
  }
  return Course::kAnswered;
}

}  // namespace orvane
