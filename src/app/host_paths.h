#pragma once

#include <string>
#include <string_view>

#include "app/host_settings.h"
#include "app/program_state.h"
#include "platform/prompts.h"

namespace orvane {

// The host's major version; part of its registry names and of its tray window's name.
inline constexpr std::string_view kHostVersion = "18";

// The key of the host's maker, of the current user.
inline constexpr std::string_view kMakerKey = "SOFTWARE\\Nordel";

// The database password of the files that the host brings: contacts and area codes.
inline constexpr std::string_view kHostFilePassword = "4rdxtz8w";

// Binds a fresh helper object to the host's registry key.
void BindHostRegistry(HostRegistry& registry);

// What is stored or, while nothing is, the setting's fallback. A failing access shows a message box
// and gives an empty text. A byte that is none throws PlatformError, as ToByte.
std::string ReadHostSetting(const HostEnvironment& host, Prompts& prompts,
                            const TextSetting& setting);
std::uint8_t ReadHostSetting(const HostEnvironment& host, Prompts& prompts,
                             const ByteSetting& setting);
double ReadHostSetting(const HostEnvironment& host, Prompts& prompts, const NumberSetting& setting);

// Whether a number is stored that is not 0. Throws RegistryError.
bool IsOn(HostRegistry& registry, const NumberSetting& setting);

// The host's key. Throws RegistryError while the program has none.
HostRegistry& RegistryOf(const HostEnvironment& host);

// Finds the host installation and its database settings in the registry. False, after a message
// box, when the installation is not within reach.
bool ReadHostPaths(HostEnvironment& host, Prompts& prompts);

// The folder of one user: `DataPath` + "User\" + number + "\".
std::string UserFolder(const HostEnvironment& host, std::int32_t userNumber);

}  // namespace orvane
