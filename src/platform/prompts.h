#pragma once

#include <string>

namespace orvane {

enum class PromptIcon { kNone, kStop, kExclamation };

// What the program puts before the user besides its windows. Message boxes return when the user has
// answered; the event loop runs meanwhile.
class Prompts {
 public:
  virtual ~Prompts() = default;
  // A plain box with an OK button. A carriage return, a line feed or both together break the line.
  virtual void ShowMessage(PromptIcon icon, const std::string& text, const std::string& title) = 0;
  // The message control: `markup` is text with "<br>" for line breaks.
  virtual void ShowMarkup(PromptIcon icon, const std::string& markup, const std::string& title) = 0;
  virtual void Beep() = 0;
  // The hourglass for the whole application, or the default pointer.
  virtual void SetBusyCursor(bool busy) = 0;
};

}  // namespace orvane
