#pragma once

#include <functional>
#include <memory>

#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/host_channel.h"
#include "platform/prompts.h"
#include "platform/serial_control.h"
#include "platform/serial_ports.h"
#include "platform/tapi_control.h"
#include "platform/window_chrome.h"

class QWidget;

namespace orvane {

// What the options dialog uses of the system; everything outlives the dialog.
struct OptionsSystem {
  TapiControl& tapi;
  SerialControl& serial;
  SerialPortLister serialPorts;
  HostChannel& channel;
  EventLoop& loop;
  Clock& clock;
  LocaleFormat& locale;
  Prompts& prompts;
  std::function<std::unique_ptr<WindowChrome>(QWidget&)> newChrome;
};

}  // namespace orvane
