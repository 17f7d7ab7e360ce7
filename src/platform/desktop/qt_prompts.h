#pragma once

#include <QMessageBox>
#include <QPointer>
#include <QString>
#include <vector>

#include "platform/prompts.h"

namespace orvane {

// Message boxes of the toolkit, in front of all windows of the program.
class QtPrompts : public Prompts {
 public:
  void ShowMessage(PromptIcon icon, const std::string& text, const std::string& title) override;
  void ShowMarkup(PromptIcon icon, const std::string& markup, const std::string& title) override;
  void Beep() override;
  void SetBusyCursor(bool busy) override;

  // The program ends: closes the boxes that are open and shows no others.
  void Dismiss();

 private:
  void ShowBox(PromptIcon icon, const QString& text, Qt::TextFormat format, const QString& title);

  std::vector<QPointer<QMessageBox>> open_;
  bool dismissed_ = false;
  bool busy_ = false;
};

}  // namespace orvane
