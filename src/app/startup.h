#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/host_helper.h"
#include "app/program_state.h"
#include "platform/host_registry.h"
#include "platform/single_instance.h"

namespace orvane {

enum class StartupOutcome { kRefused, kForwarded, kRunning };

// What start-up hands over to, above this folder.
struct StartupHooks {
  std::function<void(const std::string&)> sendToRunningInstance;
  // This is the instance that runs.
  std::function<void()> claimed;
  std::function<void()> executeCommands;
};

// The command line from the words that the shell made of it, without the program's own name.
std::string JoinCommandLine(const std::vector<std::string>& words);

// Checks that the host started the program, hands over to an instance that already runs, finds the
// host installation and runs the start arguments. `programFolder` is the program file's folder
// without a separator at its end. Everything but kRunning means that the process shall end.
StartupOutcome RunStartup(const RegistryFactory& newRegistry, SingleInstance& instance,
                          ProgramState& state, HostHelper& firstHelper, HostHelper& secondHelper,
                          const std::string& programFolder, const std::string& commandLine,
                          const StartupHooks& hooks);

}  // namespace orvane
