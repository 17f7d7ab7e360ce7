#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "app/program_state.h"
#include "app/speed_dial_file.h"
#include "platform/host_channel.h"
#include "platform/prompts.h"

namespace orvane {

// Which access code goes before the test number.
inline constexpr int kTestInternal = 0;
inline constexpr int kTestExternal = 1;

// What the options dialog shows and the user changes, apart from the speed-dial memory.
struct OptionChoices {
  bool callMonitor = false;
  std::string testNumber;
  int testTarget = kTestInternal;
  std::uint8_t dialMethod = kDialMethodNone;
  std::string outsideLineInt;
  std::string outsideLineExt;
  int comPort = 1;
  // Empty when no line is selected.
  std::string lineName;
};

// The choices as the program's settings have them. A value that the dialog cannot show becomes the
// one that the program takes it for.
OptionChoices CurrentChoices(const ProgramState& state, Prompts& prompts);

// Stores the test number and its target. Throws RegistryError.
void SaveTestNumber(HostEnvironment& host, const std::string& number, int target);

// What applying needs beside the choices.
struct ApplyContext {
  // Whose speed-dial file is written; the host may have named another user meanwhile.
  std::string userPath;
  // Nothing leaves the file alone.
  std::optional<SpeedDialMemory> speedDial;
  bool callMonitorBefore = false;
  // Reads the program's settings anew.
  std::function<void()> reloadSettings;
};

// Writes the choices to the host's registry and the speed-dial file, reloads the settings and
// notifies the host. Throws PlatformError when something cannot be written: then the registry has
// its former values again as far as it takes them and the file is as it was; only the call monitor,
// written after the reload, can fail alone, and the error says so.
void ApplyOptions(HostChannel& channel, ProgramState& state, const OptionChoices& choices,
                  const ApplyContext& context);

}  // namespace orvane
