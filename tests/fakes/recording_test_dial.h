#pragma once

#include <string>
#include <vector>

#include "dialing/trial_dial_panel.h"

namespace orvane {

// The options dialog's test dial without a dialog: writes down what it was told.
class RecordingTestDial : public TrialDialPanel {
 public:
  void SetTestDialIdle(bool idle) override {
    pressed = !idle;
    log.emplace_back(idle ? "idle" : "session");
  }
  void SetTestDialEnabled(bool value) override { enabled = value; }
  void EnableAndFocusTestDial() override { log.emplace_back("focus"); }
  int SelectedComPort() const override { return port; }
  void AppendProgress(const std::string& text) override { log.push_back(text); }

  std::vector<std::string> log;
  bool pressed = false;
  bool enabled = true;
  int port = 3;
};

}  // namespace orvane
