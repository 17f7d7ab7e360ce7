#include "ui/style/command_button.h"

namespace orvane {

CommandButton::CommandButton(QWidget* parent) : IconButton(parent) {
  setCheckable(true);
}

void CommandButton::nextCheckState() {}

}  // namespace orvane
