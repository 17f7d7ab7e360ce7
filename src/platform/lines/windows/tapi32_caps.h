#pragma once

#include <string>

#include "platform/line_info.h"
#include "platform/lines/windows/tapi32_api.h"

namespace orvane {

// One line device in an initialised TAPI.
struct Tapi32Device {
  HLINEAPP app = 0;
  DWORD id = 0;
  // Agreed on for this device.
  DWORD version = 0;
};

// The device's name, UTF-8; empty when it tells none.
std::string ReadLineName(const Tapi32Api& api, const Tapi32Device& device);

// All that the device tells about itself; what a call can do comes from its first address.
// TapiError when it tells nothing at all.
LineInfo ReadLineInfo(const Tapi32Api& api, const Tapi32Device& device);

}  // namespace orvane
