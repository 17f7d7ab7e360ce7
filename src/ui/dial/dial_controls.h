#pragma once

#include <array>

class QCheckBox;
class QBoxLayout;
class QFrame;
class QGridLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QWidget;

namespace orvane {

class CommandButton;
class DropDown;
class ElidedLabel;

// The controls of the dial window, each named as here ("txtNr", "cmdNr_7"). The window owns them.
struct DialControls {
  // Title strip.
  QFrame* panBase = nullptr;
  QLabel* imgLogo = nullptr;
  QPushButton* hovSizer = nullptr;
  QPushButton* hovClose = nullptr;

  QFrame* infBase = nullptr;
  // Number strip.
  QFrame* numberStrip = nullptr;
  QLineEdit* txtNr = nullptr;
  QPushButton* cmdClear = nullptr;
  QPushButton* cmdWdh = nullptr;
  QPushButton* cmdGetClpbrd = nullptr;
  CommandButton* cmdHistory = nullptr;
  QPushButton* cmdOptionen = nullptr;

  // The display: where the number leads and whose it is; takes the focus for typing.
  QFrame* tabDisplay = nullptr;
  ElidedLabel* lblHead = nullptr;
  ElidedLabel* lblAdr = nullptr;
  // The caption, the idle hint, and headline and detail of the dial method's status.
  std::array<ElidedLabel*, 4> lblBase{};

  // The digits by their value, then "*" and "#".
  std::array<CommandButton*, 12> cmdNr{};
  QBoxLayout* padBody = nullptr;
  QGridLayout* keypad = nullptr;
  QWidget* speedDialRow = nullptr;
  DropDown* cboNr = nullptr;
  QLabel* imgInt = nullptr;
  QLabel* imgExt = nullptr;
  QWidget* checkBoxRow = nullptr;
  QCheckBox* chkExtern = nullptr;
  QCheckBox* chkDevDial = nullptr;
  // Full view and compact view.
  std::array<CommandButton*, 2> cmdDial{};

  // Call progress.
  QFrame* logPanel = nullptr;
  QListWidget* lstCallProgress = nullptr;
  QLabel* lblVer = nullptr;
  QFrame* shpBottom = nullptr;
};

// Creates the controls of the full view inside the window and lays them out.
DialControls BuildDialControls(QWidget& window);

}  // namespace orvane
