#pragma once

#include "platform/prompts.h"
#include "platform/support_log.h"

namespace orvane {

// Message boxes that the log hears of, before they are shown and when they are closed.
class LoggedPrompts : public Prompts {
 public:
  LoggedPrompts(Prompts& screen, SupportLog& log) : screen_(screen), log_(log) {}

  void ShowMessage(PromptIcon icon, const std::string& text, const std::string& title) override;
  void ShowMarkup(PromptIcon icon, const std::string& markup, const std::string& title) override;
  void Beep() override { screen_.Beep(); }
  void SetBusyCursor(bool busy) override { screen_.SetBusyCursor(busy); }

 private:
  Prompts& screen_;
  SupportLog& log_;
};

}  // namespace orvane
