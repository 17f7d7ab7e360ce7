#include "platform/lines/line_event_queue.h"

#include <chrono>
#include <utility>

namespace orvane {

void LineEventQueue::Add(Event event) {
  events_.push_back(std::move(event));
  if (turn_ == nullptr) PlanTurn();
}

void LineEventQueue::Clear() {
  events_.clear();
  turn_.reset();
}

void LineEventQueue::PlanTurn() {
  turn_ = loop_.After(std::chrono::milliseconds(0), [this] { Deliver(); });
}

void LineEventQueue::Deliver() {
  for (std::size_t left = events_.size(); left > 0 && !events_.empty(); --left) {
    const Event event = std::move(events_.front());
    events_.pop_front();
    turn_.reset();
    // A message box that the listener shows runs a loop of its own, in which the rest is to arrive.
    if (!events_.empty()) PlanTurn();
    if (listener_ != nullptr) event(*listener_);
  }
}

}  // namespace orvane
