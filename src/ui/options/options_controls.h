#pragma once

#include <array>

#include "app/speed_dial_file.h"
#include "ui/logic/com_port_choice.h"

class QButtonGroup;
class QCheckBox;
class QFrame;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QStackedWidget;
class QTabWidget;
class QWidget;

namespace orvane {

class CommandButton;

// The fields of eight speed-dial rows.
struct SpeedDialFields {
  std::array<QLineEdit*, kSpeedDialRows> numbers{};
  std::array<QLineEdit*, kSpeedDialRows> names{};
};

// The controls of the options dialog, which owns them. Their object names ("optDial_2") are given
// where they are built.
struct OptionsControls {
  QFrame* titleBar = nullptr;
  QLabel* title = nullptr;
  QTabWidget* pages = nullptr;
  std::array<QPushButton*, 2> actions{};

  // Page "Kommunikationseinstellungen".
  std::array<QRadioButton*, 3> methods{};
  QButtonGroup* dialMethods = nullptr;
  QCheckBox* callMonitor = nullptr;
  QLabel* connectionCaption = nullptr;
  QStackedWidget* connection = nullptr;
  // Covers the choice of port or line while calls are switched off.
  QGroupBox* deactivated = nullptr;
  QLabel* deactivatedHint = nullptr;
  // COM1 first; named by the port, "optComPort_1".
  std::array<QRadioButton*, kComPortChoices> ports{};
  QListWidget* lines = nullptr;
  QPlainTextEdit* lineInfo = nullptr;
  std::array<QPushButton*, 4> lineButtons{};
  QLineEdit* outsideLineInt = nullptr;
  QLineEdit* outsideLineExt = nullptr;
  QLineEdit* testNumber = nullptr;
  std::array<QRadioButton*, 2> testTargets{};
  CommandButton* testDial = nullptr;
  QPlainTextEdit* progress = nullptr;

  // Page "Kurzwahlspeicher".
  QWidget* speedDialPage = nullptr;
  SpeedDialFields internalRows;
  SpeedDialFields externalRows;
};

// Creates the controls inside the dialog and lays them out.
OptionsControls BuildOptionsControls(QWidget& dialog);

// The pages, for BuildOptionsControls.
QWidget* BuildCommunicationPage(QWidget& dialog, OptionsControls& c);
QWidget* BuildSpeedDialPage(QWidget& dialog, OptionsControls& c);

}  // namespace orvane
