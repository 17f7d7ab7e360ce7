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

// The controls of the dial window, which owns them. Their object names ("txtNr", "cmdNr_7") are
// given where they are built.
struct DialControls {
  // Title strip.
  QFrame* titleBar = nullptr;
  QLabel* logo = nullptr;
  QPushButton* viewSwitch = nullptr;
  QPushButton* closeButton = nullptr;

  // Its designed height, in pixels, stands in the property kDesignedHeightTag.
  QFrame* body = nullptr;
  QFrame* dialPad = nullptr;
  // Number strip.
  QFrame* numberStrip = nullptr;
  QLineEdit* numberField = nullptr;
  QPushButton* clearButton = nullptr;
  QPushButton* redialButton = nullptr;
  QPushButton* pasteButton = nullptr;
  CommandButton* historyButton = nullptr;
  QPushButton* optionsButton = nullptr;

  // The display: where the number leads and whose it is; takes the focus for typing.
  QFrame* display = nullptr;
  ElidedLabel* destination = nullptr;
  ElidedLabel* contact = nullptr;
  // The caption, the idle hint, and headline and detail of the dial method's status.
  std::array<ElidedLabel*, 4> statusLabels{};

  // The digits by their value, then "*" and "#".
  std::array<CommandButton*, 12> keys{};
  QBoxLayout* padBody = nullptr;
  QGridLayout* keypad = nullptr;
  QWidget* speedDialRow = nullptr;
  DropDown* speedDial = nullptr;
  QLabel* internalMark = nullptr;
  QLabel* externalMark = nullptr;
  QWidget* checkBoxRow = nullptr;
  QCheckBox* externalBox = nullptr;
  QCheckBox* developerBox = nullptr;
  // Full view and compact view.
  std::array<CommandButton*, 2> dialButtons{};

  // Call progress.
  QFrame* log = nullptr;
  QListWidget* progressLog = nullptr;
  QLabel* version = nullptr;
  QFrame* bottomLine = nullptr;

  // The call history to the right of the dial pad; hidden until it is asked for.
  QFrame* history = nullptr;
  QTabBar* callTabs = nullptr;
  QFrame* filters = nullptr;
  DropDown* period = nullptr;
  // Internal and external calls, calls with a number and without one.
  std::array<QCheckBox*, kCallKinds> callKinds{};
  // The caption of the text filter, and how many calls are shown.
  std::array<QLabel*, 2> filterLabels{};
  QLineEdit* textFilter = nullptr;
  QPushButton* clearTextFilter = nullptr;
  CallListView* callList = nullptr;
};

// Frame of the window, and margin of the dial pad and the call history inside, in
// device-independent pixels.
inline constexpr int kFrameWidth = 1;
inline constexpr int kBodyMargin = 8;

inline constexpr char kDesignedHeightTag[] = "tag";

// Creates the controls of the full view inside the window and lays them out.
DialControls BuildDialControls(QWidget& window);

}  // namespace orvane
