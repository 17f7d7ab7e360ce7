#pragma once

#include <string>
#include <string_view>

#include "app/program_state.h"
#include "app/services.h"
#include "app/settings_panel.h"

namespace orvane {

// What GetField gives for a field that does not exist.
inline constexpr std::string_view kPipeEnd = "<PipeEnd>";

// Field `index` (from 1) of a text whose fields are parted by `separator`; kPipeEnd past the end or
// for an index below 1.
std::string GetField(std::string_view text, int index, std::string_view separator);

enum class SpeedDialKind { kInternal = 1, kExternal = 2 };

// The display text of one speed-dial entry; the name goes in as it is.
std::string SpeedDialItemMarkup(std::string_view name, SpeedDialKind kind);

// One INI value as UTF-8; the fallback when it does not exist. A failing system call shows a
// message box and gives an empty text.
std::string ReadIniValue(Services& services, std::string_view section, std::string_view key,
                         std::string_view file, std::string_view fallback);

// Whether the line control has been initialised and not closed since.
bool TapiInitialised(const TapiControl& tapi);

// Opens a telephone line with the line control's own constants. Throws TapiError.
void OpenTapiLine(TapiControl& tapi, std::int32_t& line);

// Reads all settings from the host's registry key, "Global.ini" and the user's speed-dial file into
// the program's state, opens the configured telephone line and prepares the window. May run any
// number of times. Errors end it with the error report; what was read until then stays in force.
void InitSettings(Services& services, ProgramState& state, SettingsPanel& panel);

// Opens the line of the settings as they are again, and shows whether that worked; a failure is
// not reported beyond that. For a line that was given up for a while.
void ReopenConfiguredLine(Services& services, ProgramState& state, SettingsPanel& panel);

}  // namespace orvane
