#pragma once

#include <string>
#include <vector>

#include "app/settings_panel.h"
#include "dialing/dial_panel.h"
#include "remote/remote_panel.h"

namespace orvane {

// The dial window without a window: keeps what it was told.
class FakePanel : public SettingsPanel, public DialPanel, public RemotePanel {
 public:
  void SetExternVisible(bool visible) override { externVisible = visible; }
  void ResetSpeedDial() override {
    speedDial = {};
    speedDialNumbers = {};
    speedDialSelectable = false;
  }
  void AddSpeedDialEntry(const std::string& text) override { speedDial.push_back(text); }
  void SetSpeedDialNumbers(const std::string& numbers) override { speedDialNumbers = numbers; }
  void SetSpeedDialSelectable(bool selectable) override { speedDialSelectable = selectable; }
  void SetSpeedDialToolTip(const std::string& /*text*/) override {}
  void SetDialMethodStatus(const std::string& headline, const std::string& detail) override {
    status = headline + "/" + detail;
  }

  void AddStatus(const std::string& text) override { log.push_back(text); }
  bool ExternTicked() const override { return externTicked; }
  void SetContactLabel(const std::string& text) override { contactLabel = text; }
  std::string NumberText() const override { return numberText; }
  void ClearStatus() override { log.clear(); }
  void SetDialButtonIdle(bool idle) override { sessionOn = !idle; }
  bool ExternVisible() const override { return externVisible; }
  void SetExternTicked(bool ticked) override { externTicked = ticked; }
  bool DevDialTicked() const override { return devDialTicked; }
  bool HistoryShown() const override { return historyShown; }
  void ToggleHistory() override { historyShown = !historyShown; }

  bool WindowEnabled() const override { return windowEnabled; }
  void SetDialButtonsEnabled(bool enabled) override { dialEnabled = enabled; }
  void FocusDialButton() override { ++dialFocused; }
  void LinesChanged() override { ++linesChanged; }

  bool IsLoaded() const override { return loaded; }
  void Load() override { loaded = true; }
  void Show() override { loaded = shown = true; }
  void Unload() override { loaded = shown = false; }
  void ReloadSettings() override { ++reloads; }
  bool NumberEnabled() const override { return numberEnabled; }
  void SetNumberText(const std::string& text) override { numberText = text; }

  std::vector<std::string> speedDial, log;
  std::string speedDialNumbers, status, contactLabel, numberText;
  bool speedDialSelectable = false, externVisible = false, externTicked = false;
  bool devDialTicked = false, historyShown = false, sessionOn = false;
  bool windowEnabled = true, dialEnabled = true, numberEnabled = true;
  bool loaded = false, shown = false;
  int dialFocused = 0, reloads = 0, linesChanged = 0;
};

}  // namespace orvane
