#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/prompts.h"

namespace orvane {

// Records what the user would see and hear. `whileShown` runs in place of the box's event loop.
class FakePrompts : public Prompts {
 public:
  struct Box {
    PromptIcon icon;
    std::string text;
    std::string title;
    bool operator==(const Box&) const = default;
  };

  void ShowMessage(PromptIcon icon, const std::string& text, const std::string& title) override {
    boxes.push_back({icon, text, title});
    if (whileShown) whileShown();
  }
  void ShowMarkup(PromptIcon icon, const std::string& markup, const std::string& title) override {
    markups.push_back({icon, markup, title});
    if (whileShown) whileShown();
  }
  void Beep() override { ++beeps; }
  void SetBusyCursor(bool value) override { busy = value; }

  std::vector<Box> boxes;
  std::vector<Box> markups;
  int beeps = 0;
  bool busy = false;
  std::function<void()> whileShown;
};

}  // namespace orvane
