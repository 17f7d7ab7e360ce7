#pragma once

#include <QString>

#include "platform/prompts.h"

namespace orvane {

// Message boxes of the toolkit, in front of all windows of the program.
class QtPrompts : public Prompts {
 public:
  void ShowMessage(PromptIcon icon, const std::string& text, const std::string& title) override;
  void ShowMarkup(PromptIcon icon, const std::string& markup, const std::string& title) override;
  void Beep() override;
  void SetBusyCursor(bool busy) override;

 private:
  bool busy_ = false;
};

}  // namespace orvane
