#pragma once

#include <array>

#include "ui/logic/call_query.h"

class QCheckBox;
class QBoxLayout;
class QFrame;
class QGridLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTabBar;
class QWidget;

namespace orvane {

class CallListView;
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

  // Its designed height, in pixels, stands in the property kDesignedHeightTag.
  QFrame* infBase = nullptr;
  QFrame* dialPad = nullptr;
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
  QFrame* log = nullptr;
  QListWidget* lstCallProgress = nullptr;
  QLabel* lblVer = nullptr;
  QFrame* shpBottom = nullptr;

  // The call history to the right of the dial pad; hidden until it is asked for.
  QFrame* history = nullptr;
  QTabBar* tabTab = nullptr;
  QFrame* grpFilter = nullptr;
  DropDown* cboFilter = nullptr;
  // Internal and external calls, calls with a number and without one.
  std::array<QCheckBox*, kCallKinds> chkTelList{};
  // The caption of the text filter, and how many calls are shown.
  std::array<QLabel*, 2> lblInf{};
  QLineEdit* txtFilter = nullptr;
  QPushButton* cmdClrTextFilter = nullptr;
  CallListView* repTel = nullptr;
};

// Frame of the window, and margin of the dial pad and the call history inside, in
// device-independent pixels.
inline constexpr int kFrameWidth = 1;
inline constexpr int kBodyMargin = 8;

inline constexpr char kDesignedHeightTag[] = "tag";

// Creates the controls of the full view inside the window and lays them out.
DialControls BuildDialControls(QWidget& window);

}  // namespace orvane
