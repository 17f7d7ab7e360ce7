#pragma once

#include <string>
#include <string_view>

#include "app/program_state.h"
#include "platform/prompts.h"

namespace orvane {

// The host's major version; part of its registry names and of its tray window's name.
inline constexpr std::string_view kHostVersion = "18";

// Binds a fresh helper object to the host's registry key.
void BindHostRegistry(HostRegistry& registry);

// A value directly under the host's key. A failing access shows a message box and gives an empty
// text.
std::string ReadHostSetting(const HostEnvironment& host, Prompts& prompts, std::string_view name,
                            std::string_view fallback);

// Finds the host installation and its database settings in the registry. False, after a message
// box, when the installation is not within reach.
bool ReadHostPaths(HostEnvironment& host, Prompts& prompts);

// The folder of one user: `DataPath` + "User\" + number + "\".
std::string UserFolder(const HostEnvironment& host, std::int32_t userNumber);

}  // namespace orvane
