#pragma once

#include "platform/clock.h"
#include "platform/database.h"
#include "platform/event_loop.h"
#include "platform/host_channel.h"
#include "platform/host_registry.h"
#include "platform/ini_file.h"
#include "platform/prompts.h"
#include "platform/serial_control.h"
#include "platform/serial_ports.h"
#include "platform/single_instance.h"
#include "platform/tapi_control.h"

namespace orvane {

// The system under the program, put together once in main.
struct Services {
  RegistryFactory newRegistry;
  IniFile& ini;
  DatabaseServices& databases;
  SerialControl& serial;
  TapiControl& tapi;
  HostChannel& channel;
  SingleInstance& instance;
  EventLoop& loop;
  Clock& clock;
  LocaleFormat& locale;
  Prompts& prompts;
  SerialPortLister serialPorts;
};

}  // namespace orvane
