#pragma once

#include <string>

namespace orvane {

// What logging a call needs of the dial window.
class CallDisplay {
 public:
  virtual ~CallDisplay() = default;
  // Appends one line to the call progress log `lstCallProgress`.
  virtual void AddStatus(const std::string& text) = 0;
  // The state of `chkExtern`.
  virtual bool ExternTicked() const = 0;
  // The caption of `lblAdr`; lines are parted by CR LF.
  virtual void SetContactLabel(const std::string& text) = 0;
};

}  // namespace orvane
