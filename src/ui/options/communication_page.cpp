#include <QBoxLayout>
#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QStackedWidget>

#include "ui/options/options_controls.h"
#include "ui/style/check_box.h"
#include "ui/style/command_button.h"
#include "ui/style/control_building.h"
#include "ui/style/radio_button.h"

namespace orvane {
namespace {

constexpr int kPageMargin = 12;
constexpr int kSpacing = 8;
constexpr int kSubordinateIndent = 20;
constexpr int kFieldHeight = 28;
constexpr int kAccessCodeWidth = 70;
constexpr int kDialHeight = 36;
constexpr int kDialIconSide = 20;
constexpr int kLineRows = 4;
constexpr int kInfoRows = 5;
constexpr int kLogRows = 7;
constexpr int kMaxLogLines = 2000;

QGroupBox* NewGroup(QWidget& parent, const char* caption) {
  return new QGroupBox(QString::fromUtf8(caption), &parent);
}

QRadioButton* NewChoice(QWidget& parent, const char* name, std::size_t index,
                        const QString& caption, const QString& description) {
  auto* choice = new RadioButton(caption, &parent);
  Name(*choice, name, index);
  choice->setToolTip(description);
  return choice;
}

// A box of text to read and to copy from.
QPlainTextEdit* NewTextBox(QWidget& parent, const char* name, const char* description, int rows) {
  auto* box = new QPlainTextEdit(&parent);
  Name(*box, name);
  Describe(*box, description);
  box->setReadOnly(true);
  box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box->setTabChangesFocus(true);
  box->setMaximumBlockCount(kMaxLogLines);
  box->setMinimumHeight(rows * box->fontMetrics().lineSpacing() + 14);
  return box;
}

QLineEdit* NewField(QWidget& parent, const char* name, const char* description) {
  auto* field = new QLineEdit(&parent);
  Name(*field, name);
  Describe(*field, description);
  AtLeastHigh(*field, kFieldHeight);
  return field;
}

QGroupBox* BuildMethods(QWidget& page, OptionsControls& c) {
  static constexpr struct {
    const char* caption;
    const char* description;
  } kMethods[] = {
      {"Keine / &deaktiviert", "Rufnummern nicht automatisch wählen"},
      {"Serielle Schnittste&lle", "Über ein Modem an einem COM-Anschluss wählen"},
      {"&TAPI-Gerät (z. B. ISDN-Karte)", "Über eine Telefonleitung des Systems wählen"},
  };
  QGroupBox* group = NewGroup(page, "Telefonwahl");
  auto* column = new QVBoxLayout(group);
  column->setSpacing(4);
  c.dialMethods = new QButtonGroup(group);
  for (std::size_t i = 0; i < c.methods.size(); ++i) {
    c.methods[i] = NewChoice(*group, "optDial", i, QString::fromUtf8(kMethods[i].caption),
                             QString::fromUtf8(kMethods[i].description));
    c.dialMethods->addButton(c.methods[i], static_cast<int>(i));
    column->addWidget(c.methods[i]);
  }
  c.callMonitor = new CheckBox(QStringLiteral("TAPI-Anruf&monitor"), group);
  Name(*c.callMonitor, "chkAnrufmonitor");
  c.callMonitor->setToolTip(
      QStringLiteral("Der Hauptanwendung die Leitung nennen, deren Anrufe sie anzeigen soll"));
  auto* indented = new QHBoxLayout;
  indented->setContentsMargins(kSubordinateIndent, 0, 0, 0);
  indented->addWidget(c.callMonitor);
  column->addLayout(indented);
  return group;
}

QGroupBox* BuildAccessCodes(QWidget& page, OptionsControls& c) {
  QGroupBox* group = NewGroup(page, "Amtskennziffern");
  c.outsideLineInt = NewField(*group, "txtAmtIntern", "Amtskennziffer für interne Gespräche");
  c.outsideLineExt = NewField(*group, "txtAmtExtern", "Amtskennziffer für externe Gespräche");
  auto* row = new QHBoxLayout(group);
  row->setSpacing(kSpacing);
  const auto add = [&](const char* caption, QLineEdit* field) {
    auto* label = new QLabel(QString::fromUtf8(caption), group);
    label->setBuddy(field);
    field->setMinimumWidth(kAccessCodeWidth);
    row->addWidget(label);
    row->addWidget(field, 1);
  };
  add("&Intern:", c.outsideLineInt);
  add("E&xtern:", c.outsideLineExt);
  return group;
}

QWidget* BuildPorts(OptionsControls& c) {
  auto* page = new QWidget(c.connection);
  auto* grid = new QGridLayout(page);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(kSpacing);
  const int rows = kComPortChoices / 2;
  for (int i = 0; i < kComPortChoices; ++i) {
    const int port = i + 1;
    auto* choice =
        NewChoice(*page, "optComPort", static_cast<std::size_t>(port),
                  QStringLiteral("COM&%1").arg(port), QStringLiteral("Modem an COM%1").arg(port));
    choice->setEnabled(false);
    grid->addWidget(choice, i % rows, i / rows);
    c.ports[static_cast<std::size_t>(i)] = choice;
  }
  grid->setRowStretch(rows, 1);
  return page;
}

QGridLayout* BuildLineCommands(QWidget& page, OptionsControls& c) {
  static constexpr struct {
    const char* caption;
    const char* description;
  } kCommands[] = {
      {"Wähl&parameter", "Wählparameter des Systems für die gewählte Leitung"},
      {"Treiberei&nstellung", "Einstellungen des Treibers der gewählten Leitung"},
      {"Treiber-In&formation", "Angaben über den Treiber der gewählten Leitung"},
      {"Liste akt&ualisieren", "Die Leitungen noch einmal auslesen"},
  };
  auto* grid = new QGridLayout;
  grid->setSpacing(6);
  for (std::size_t i = 0; i < c.lineButtons.size(); ++i) {
    auto* button = new IconButton(&page);
    Name(*button, "cmdConfigDlg", i);
    button->setText(QString::fromUtf8(kCommands[i].caption));
    button->setToolTip(QString::fromUtf8(kCommands[i].description));
    AtLeastHigh(*button, kFieldHeight);
    grid->addWidget(button, static_cast<int>(i / 2), static_cast<int>(i % 2));
    c.lineButtons[i] = button;
  }
  return grid;
}

QWidget* BuildLines(OptionsControls& c) {
  auto* page = new QWidget(c.connection);
  c.lines = new QListWidget(page);
  Name(*c.lines, "lstLineSel");
  SetRole(*c.lines, role::kChoices);
  Describe(*c.lines, "TAPI-Geräte");
  c.lines->setTextElideMode(Qt::ElideMiddle);
  c.lines->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  c.lines->setMinimumHeight(kLineRows * (c.lines->fontMetrics().lineSpacing() + 6) + 6);

  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(6);
  column->addWidget(c.lines, 1);
  column->addLayout(BuildLineCommands(*page, c));
  c.lineInfo = NewTextBox(*page, "txtTapiInfo", "Angaben zum TAPI-Gerät", kInfoRows);
  column->addWidget(c.lineInfo, 1);
  return page;
}

// Lies over the connection without being laid out with it; the dialog places it.
void BuildCover(QWidget& page, OptionsControls& c) {
  c.deactivated = NewGroup(page, "Die automatische Telefonwahl ist deaktiviert");
  Name(*c.deactivated, "grpDeakt");
  SetRole(*c.deactivated, role::kCover);
  c.deactivatedHint = new QLabel(c.deactivated);
  c.deactivatedHint->setWordWrap(true);
  auto* column = new QVBoxLayout(c.deactivated);
  column->addWidget(c.deactivatedHint);
  column->addStretch();
  c.deactivated->hide();
}

QVBoxLayout* BuildConnection(QWidget& page, OptionsControls& c) {
  c.connectionCaption = new QLabel(QStringLiteral("Kommunikationsanschluss:"), &page);
  Name(*c.connectionCaption, "lblDialHead");
  SetRole(*c.connectionCaption, role::kHeading);
  c.connection = new QStackedWidget(&page);
  Name(*c.connection, "tabConf");
  c.connection->setAccessibleName(QStringLiteral("Kommunikationsanschluss"));
  c.connection->addWidget(BuildPorts(c));
  c.connection->addWidget(BuildLines(c));

  auto* column = new QVBoxLayout;
  column->setSpacing(6);
  column->addWidget(c.connectionCaption);
  column->addWidget(c.connection, 1);
  return column;
}

QVBoxLayout* BuildTestEntry(QWidget& group, OptionsControls& c) {
  c.testNumber = NewField(group, "txtTestNr", "Testrufnummer");
  auto* label = new QLabel(QStringLiteral("T&estrufnummer:"), &group);
  label->setBuddy(c.testNumber);

  auto* targets = new QHBoxLayout;
  targets->setSpacing(kSpacing);
  auto* choices = new QButtonGroup(&group);
  static constexpr const char* kTargets[] = {"intern", "extern"};
  for (std::size_t i = 0; i < c.testTargets.size(); ++i) {
    const QString target = QString::fromLatin1(kTargets[i]);
    c.testTargets[i] = NewChoice(group, "optIntExt", i, target,
                                 QStringLiteral("Mit der Amtskennziffer „%1“ wählen").arg(target));
    choices->addButton(c.testTargets[i]);
    targets->addWidget(c.testTargets[i]);
  }
  targets->addStretch();

  c.testDial = new CommandButton(&group);
  Name(*c.testDial, "cmdDial");
  c.testDial->setIconSize(QSize(kDialIconSide, kDialIconSide));
  AtLeastHigh(*c.testDial, kDialHeight);

  auto* column = new QVBoxLayout;
  column->setSpacing(6);
  column->addWidget(label);
  column->addWidget(c.testNumber);
  column->addLayout(targets);
  column->addStretch();
  column->addWidget(c.testDial);
  return column;
}

QGroupBox* BuildTestDial(QWidget& page, OptionsControls& c) {
  QGroupBox* group = NewGroup(page, "Testwahl");
  auto* row = new QHBoxLayout(group);
  row->setSpacing(kPageMargin);
  row->addLayout(BuildTestEntry(*group, c), 2);
  c.progress = NewTextBox(*group, "txtCallProgress", "Verlauf der Testwahl", kLogRows);
  SetRole(*c.progress, role::kLog);
  row->addWidget(c.progress, 3);
  return group;
}

}  // namespace

QWidget* BuildCommunicationPage(QWidget& dialog, OptionsControls& c) {
  auto* page = new QWidget(&dialog);
  auto* left = new QVBoxLayout;
  left->setSpacing(kSpacing);
  left->addWidget(BuildMethods(*page, c));
  left->addWidget(BuildAccessCodes(*page, c));
  left->addStretch();

  auto* grid = new QGridLayout(page);
  grid->setContentsMargins(kPageMargin, kSpacing, kPageMargin, 0);
  grid->setHorizontalSpacing(kPageMargin);
  grid->setVerticalSpacing(kSpacing);
  grid->addLayout(left, 0, 0);
  grid->addLayout(BuildConnection(*page, c), 0, 1);
  grid->addWidget(BuildTestDial(*page, c), 1, 0, 1, 2);
  grid->setColumnStretch(0, 2);
  grid->setColumnStretch(1, 3);
  grid->setRowStretch(0, 3);
  grid->setRowStretch(1, 2);
  BuildCover(*page, c);
  return page;
}

}  // namespace orvane
