#pragma once

#include <functional>
#include <utility>

#include "app/program_state.h"
#include "app/settings_panel.h"
#include "platform/ini_file.h"
#include "platform/prompts.h"
#include "platform/support_log.h"
#include "platform/tapi_control.h"

namespace orvane {

// Loads the program's settings and prepares the dial window from them.
class SettingsLoader {
 public:
  // Everything referred to outlives the loader. `renewJournal` gives the call journal a fresh
  // connection.
  SettingsLoader(IniFile& ini, TapiControl& tapi, Prompts& prompts, SupportLog& log,
                 ProgramState& state, SettingsPanel& panel, std::function<void()> renewJournal)
      : ini_(ini),
        tapi_(tapi),
        prompts_(prompts),
        log_(log),
        state_(state),
        panel_(panel),
        renewJournal_(std::move(renewJournal)) {}

  // Reads all settings from the host's registry key, "Global.ini" and the user's speed-dial file
  // into the program's state, opens the configured telephone line and prepares the window. May run
  // any number of times. Errors end it with the error report; what was read until then stays in
  // force.
  void InitSettings();

  // Opens the line of the settings as they are again, and shows whether that worked; a failure is
  // not reported beyond that. For a line that was given up for a while.
  void ReopenConfiguredLine();

 private:
  void ReadRegistrySettings();
  void ReadFiles();
  void ShowDialMethod();
  void TellSettings() const;

  IniFile& ini_;
  TapiControl& tapi_;
  Prompts& prompts_;
  SupportLog& log_;
  ProgramState& state_;
  SettingsPanel& panel_;
  std::function<void()> renewJournal_;
};

}  // namespace orvane
