#pragma once

#include <cstdint>
#include <string>

#include "platform/tapi_control.h"

namespace orvane {

// Numbers for calls, unlike in the whole process; never 0.
class CallHandles {
 public:
  std::int32_t Next() { return ++last_; }

 private:
  std::int32_t last_ = 0x1000;
};

// A source of telephone lines. Lines are counted from 0 within the provider and keep their place
// between Initialise and ShutDown. Failures are TapiError.
//
// Events arrive on the event loop, never inside a call to the provider. A call that connects gives
// the call state "connected" before the connected event; a call that ends gives the call state
// "disconnected", then the disconnected event, then the call state "idle", and nothing after that.
// After ShutDown there are no events.
class LineServiceProvider {
 public:
  virtual ~LineServiceProvider() = default;

  // Finds the lines. No lines is not a failure.
  virtual void Initialise() = 0;
  virtual void ShutDown() = 0;

  virtual int LineCount() const = 0;
  // Empty when the device is gone: the line keeps its place but cannot be chosen.
  virtual std::string LineName(int line) const = 0;
  virtual LineInfo Info(int line) const = 0;
  // Lines without dialogs refuse; see TapiControl.
  virtual void ShowDialog(int line, LineDialog dialog, std::uintptr_t owner);

  // Opening an open line and closing a closed one does nothing. Closing ends the line's call.
  virtual void OpenLine(int line) = 0;
  virtual void CloseLine(int line) = 0;

  // Starts a call to `number` (digits, "*", "#") on an open line without a call; its handle.
  virtual std::int32_t MakeCall(int line, const std::string& number) = 0;
  // Ends the line's call; handle 0 means the call that has not reported its handle yet.
  virtual void DropCall(int line, std::int32_t callHandle) = 0;

  virtual void SetEvents(TapiEvents* events) = 0;
};

}  // namespace orvane
