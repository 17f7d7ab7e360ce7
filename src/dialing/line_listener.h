#pragma once

#include <cstdint>
#include <string>

#include "platform/clock.h"

namespace orvane {

// Who follows the calls of the telephone lines. Every event comes with the moment at which the line
// reported it, which may be long past.
class LineListener {
 public:
  virtual ~LineListener() = default;
  virtual void Busy(std::int32_t callHandle, const Moment& at) = 0;
  virtual void Connected(std::int32_t callHandle, const Moment& at) = 0;
  virtual void Disconnected(std::int32_t callHandle, const Moment& at) = 0;
  virtual void LineMessage(const std::string& result, const std::string& function,
                           std::int32_t code) = 0;
  virtual void CallState(std::int32_t callHandle, std::int32_t callId, std::int32_t state,
                         const Moment& at) = 0;
};

}  // namespace orvane
