#pragma once

#include "platform/background.h"
#include "platform/database.h"
#include "platform/host_registry.h"
#include "platform/ini_file.h"
#include "platform/support_log.h"
#include "ui/options/options_system.h"

namespace orvane {

// What the dial window and what it opens use of the system; everything outlives the window.
struct DialSystem : OptionsSystem {
  RegistryFactory newRegistry;
  IniFile& ini;
  DatabaseServices& databases;
  Background& background;
  SupportLog& log;
};

}  // namespace orvane
