#pragma once

#include <string>

#include "platform/prompts.h"

namespace orvane {

// The host's message and language helper: keeps which libraries of the host it belongs to and shows
// the program's message boxes. The texts are handed over as the host expects it and nothing here
// looks at them; the library files need not exist.
class HostHelper : public Prompts {
 public:
  explicit HostHelper(Prompts& screen) : screen_(screen) {}

  void InitialiseMessages(const std::string& library, const std::string& iniName) {
    library_ = library;
    iniName_ = iniName;
  }
  void SetLanguageResource(const std::string& path) { languageResource_ = path; }

  const std::string& MessageLibrary() const { return library_; }
  const std::string& MessageIni() const { return iniName_; }
  const std::string& LanguageResource() const { return languageResource_; }

  void ShowMessage(PromptIcon icon, const std::string& text, const std::string& title) override {
    screen_.ShowMessage(icon, text, title);
  }
  void ShowMarkup(PromptIcon icon, const std::string& markup, const std::string& title) override {
    screen_.ShowMarkup(icon, markup, title);
  }
  void Beep() override { screen_.Beep(); }
  void SetBusyCursor(bool busy) override { screen_.SetBusyCursor(busy); }

 private:
  Prompts& screen_;
  std::string library_;
  std::string iniName_;
  std::string languageResource_;
};

}  // namespace orvane
