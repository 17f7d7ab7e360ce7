#pragma once

#include <deque>
#include <functional>
#include <memory>

#include "platform/event_loop.h"
#include "platform/tapi_control.h"

namespace orvane {

// Hands events to the program's listener on a later turn of the event loop, in order. What belongs
// together is added together and arrives in one turn, so that nothing new begins in between.
class LineEventQueue {
 public:
  using Event = std::function<void(TapiEvents&)>;

  explicit LineEventQueue(EventLoop& loop) : loop_(loop) {}

  void SetListener(TapiEvents* listener) { listener_ = listener; }
  void Add(Event event);
  // Forgets what has not been delivered.
  void Clear();

 private:
  void PlanTurn();
  void Deliver();

  EventLoop& loop_;
  TapiEvents* listener_ = nullptr;
  std::deque<Event> events_;
  std::unique_ptr<EventLoop::Timer> turn_;
};

}  // namespace orvane
