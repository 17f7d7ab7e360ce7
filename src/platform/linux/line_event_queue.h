#pragma once

#include <deque>
#include <functional>
#include <memory>

#include "platform/event_loop.h"
#include "platform/tapi_control.h"

namespace orvane {

// Hands events to the program's listener on later turns of the event loop, one a turn and in order.
class LineEventQueue {
 public:
  using Event = std::function<void(TapiEvents&)>;

  explicit LineEventQueue(EventLoop& loop) : loop_(loop) {}

  void SetListener(TapiEvents* listener) { listener_ = listener; }
  void Add(Event event);
  // Forgets what has not been delivered.
  void Clear();

 private:
  void DeliverNext();

  EventLoop& loop_;
  TapiEvents* listener_ = nullptr;
  std::deque<Event> events_;
  std::unique_ptr<EventLoop::Timer> turn_;
};

}  // namespace orvane
