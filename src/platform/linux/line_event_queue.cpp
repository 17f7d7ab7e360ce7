#include "platform/linux/line_event_queue.h"

#include <chrono>
#include <utility>

namespace orvane {

void LineEventQueue::Add(Event event) {
  events_.push_back(std::move(event));
  if (turn_ == nullptr) {
    turn_ = loop_.After(std::chrono::milliseconds(0), [this] { DeliverNext(); });
  }
}

void LineEventQueue::Clear() {
  events_.clear();
  turn_.reset();
}

// The next turn is planned before anyone hears of this event: a message box that the listener shows
// runs a loop of its own, in which the rest is to arrive.
void LineEventQueue::DeliverNext() {
  turn_.reset();
  const Event event = std::move(events_.front());
  events_.pop_front();
  if (!events_.empty()) {
    turn_ = loop_.After(std::chrono::milliseconds(0), [this] { DeliverNext(); });
  }
  if (listener_ != nullptr) event(*listener_);
}

}  // namespace orvane
