#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/errors.h"
#include "platform/line_info.h"

namespace orvane {

inline constexpr std::int32_t kNoTapiLine = -1;

// The line control's own constants for opening a line and for placing a call.
inline constexpr std::int32_t kOpenPrivileges = 4;
inline constexpr std::int32_t kOpenMediaModes = 6;
inline constexpr std::int16_t kOpenOptions = 9;
inline constexpr std::int16_t kCallOptions = 0;

// How far the line control is: nothing was initialised, or was shut down; initialised, or a line
// was closed; a line was opened.
enum class TapiTag { kNone, kClosed, kOpened };

// Call states, as the line interface numbers them.
inline constexpr std::int32_t kLineCallIdle = 0x1;
inline constexpr std::int32_t kLineCallDialing = 0x10;
inline constexpr std::int32_t kLineCallRingback = 0x20;
inline constexpr std::int32_t kLineCallBusy = 0x40;
inline constexpr std::int32_t kLineCallConnected = 0x100;
inline constexpr std::int32_t kLineCallProceeding = 0x200;
inline constexpr std::int32_t kLineCallDisconnected = 0x4000;

// Error numbers that lines report.
inline constexpr auto kLineErrorBadDevice = static_cast<std::int32_t>(0x80000002U);
inline constexpr auto kLineErrorCallUnavailable = static_cast<std::int32_t>(0x80000005U);
inline constexpr auto kLineErrorInvalidAddress = static_cast<std::int32_t>(0x80000010U);
inline constexpr auto kLineErrorInvalidCall = static_cast<std::int32_t>(0x80000018U);
inline constexpr auto kLineErrorInvalidLine = static_cast<std::int32_t>(0x8000002BU);
inline constexpr auto kLineErrorOperationFailed = static_cast<std::int32_t>(0x80000048U);
inline constexpr auto kLineErrorOperationUnavailable = static_cast<std::int32_t>(0x80000049U);

// The events of the telephone line control.
class TapiEvents {
 public:
  virtual ~TapiEvents() = default;
  virtual void OnBusy(std::int32_t callHandle) = 0;
  virtual void OnConnected(std::int32_t callHandle) = 0;
  virtual void OnDisconnected(std::int32_t callHandle) = 0;
  virtual void OnLineMessage(const std::string& result, const std::string& function,
                             std::int32_t code) = 0;
  virtual void OnCallState(std::int32_t callHandle, std::int32_t callId, std::int32_t state) = 0;
};

// Telephone lines: find, open, call, drop. Line indexes run from 0 to LineCount() - 1. Failures are
// TapiError.
class TapiControl {
 public:
  virtual ~TapiControl() = default;

  virtual void Initialise() = 0;
  virtual int LineCount() = 0;
  // UTF-8; empty when the line's device is gone, which keeps its index until ShutDown.
  virtual std::string LineName(int line) = 0;
  // The line need not be open.
  virtual LineInfo Info(int line) = 0;
  // Shows the dialog and returns when the user has closed it. `owner` is the window it stands
  // before, by the system's number, 0 for none. Where the line has no such dialog:
  // kLineErrorOperationUnavailable.
  virtual void ShowDialog(int line, LineDialog dialog, std::uintptr_t owner) = 0;
  // The identifier of the line from now on. The three constants are the line control's own.
  virtual std::int32_t OpenLine(std::int32_t line, std::int32_t privileges, std::int32_t mediaModes,
                                std::int16_t options) = 0;
  virtual void CloseLine(std::int32_t line) = 0;
  // The handle by which events will name the call, 0 when that is not known yet.
  virtual std::int32_t MakeCall(std::int32_t line, const std::string& dialString,
                                std::int16_t options) = 0;
  // Handle 0 means the call that has not reported its handle yet.
  virtual void DropCall(std::int32_t line, std::int32_t callHandle) = 0;
  virtual void ShutDown() = 0;

  // Follows what the control does and what lines report.
  virtual TapiTag Tag() const = 0;
  // Whether the lines are to be looked for (again) before they are used.
  bool NeedsInitialise() const { return Tag() != TapiTag::kOpened; }

  // Nobody listens when null. The listener outlives the control or is taken back.
  virtual void SetEvents(TapiEvents* events) = 0;
};

}  // namespace orvane
