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

// The controls of the options dialog, each named as here ("optDial_2"). The dialog owns them.
struct OptionsControls {
  QFrame* panHead = nullptr;
  QLabel* lblHead = nullptr;
  QTabWidget* tabTab = nullptr;
  std::array<QPushButton*, 2> cmdAktion{};

  // Page "Kommunikationseinstellungen".
  std::array<QRadioButton*, 3> optDial{};
  QButtonGroup* dialMethods = nullptr;
  QCheckBox* chkAnrufmonitor = nullptr;
  QLabel* lblDialHead = nullptr;
  QStackedWidget* tabConf = nullptr;
  // Covers the choice of port or line while calls are switched off.
  QGroupBox* grpDeakt = nullptr;
  QLabel* deactivatedHint = nullptr;
  // COM1 first; named by the port, "optComPort_1".
  std::array<QRadioButton*, kComPortChoices> optComPort{};
  QListWidget* lstLineSel = nullptr;
  QPlainTextEdit* txtTapiInfo = nullptr;
  std::array<QPushButton*, 4> cmdConfigDlg{};
  QLineEdit* txtAmtIntern = nullptr;
  QLineEdit* txtAmtExtern = nullptr;
  QLineEdit* txtTestNr = nullptr;
  std::array<QRadioButton*, 2> optIntExt{};
  CommandButton* cmdDial = nullptr;
  QPlainTextEdit* txtCallProgress = nullptr;

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
