#pragma once

#include "ui/style/icon_button.h"

namespace orvane {

// A button whose pressed look is set by the program: it tells a state and is not toggled by a
// click.
class CommandButton : public IconButton {
 public:
  explicit CommandButton(QWidget* parent);

 protected:
  void nextCheckState() override;
};

}  // namespace orvane
