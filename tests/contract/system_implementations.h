#pragma once

#include <memory>
#include <vector>

#include "contract/channel_desktop.h"
#include "contract/line_lab.h"
#include "contract/serial_rig.h"
#include "platform/host_registry.h"
#include "platform/ini_file.h"
#include "platform/single_instance.h"

namespace orvane {

// What the contract suites are to be run with beside the fakes: the implementations of the system
// that the tests are built for. Each call gives a world of its own.

std::unique_ptr<IniFile> NewSystemIni();

RegistryFactory MakeSystemRegistries();

std::unique_ptr<ChannelDesktop> MakeSystemDesktop();

// Nothing where the machine has no serial cable for tests.
std::unique_ptr<SerialRig> MakeSystemSerialRig();

using InstanceFactory = std::function<std::unique_ptr<SingleInstance>()>;
InstanceFactory MakeSystemInstances();

std::vector<LineImplementation> SystemLines();

}  // namespace orvane
