#pragma once

#include <functional>

namespace orvane {

// The system wants the program to end: a signal, or the end of the user's session.
class EndRequests {
 public:
  // Soon: when what is in the middle of its work is done. At once: the system may end the program
  // as soon as the handler returns.
  enum class When { kSoon, kAtOnce };

  virtual ~EndRequests() = default;
  // Runs on the event loop's thread.
  virtual void SetHandler(std::function<void(When)> handler) = 0;
};

}  // namespace orvane
