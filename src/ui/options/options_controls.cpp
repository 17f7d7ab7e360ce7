#include "ui/options/options_controls.h"

#include <QBoxLayout>
#include <QLabel>
#include <QTabBar>
#include <QTabWidget>

#include "ui/style/control_building.h"
#include "ui/style/icon_button.h"
#include "ui/style/picture.h"

namespace orvane {
namespace {

constexpr int kFrameWidth = 1;
constexpr int kLogoSide = 14;
constexpr int kCommandWidth = 120;
constexpr int kCommandHeight = 32;

void BuildHead(QWidget& dialog, OptionsControls& c) {
  c.panHead = NewPanel(dialog, "panHead", role::kTitle);
  auto* logo = new Picture(c.panHead, Glyph::kLogo, &Palette::logo, kLogoSide);
  logo->setAttribute(Qt::WA_TransparentForMouseEvents);
  c.lblHead = new QLabel(QStringLiteral("Brisko :: Optionen"), c.panHead);
  Name(*c.lblHead, "lblHead");
  auto* row = new QHBoxLayout(c.panHead);
  row->setContentsMargins(8, 4, 6, 4);
  row->setSpacing(6);
  row->addWidget(logo);
  row->addWidget(c.lblHead, 1);
}

void BuildPages(QWidget& dialog, OptionsControls& c) {
  c.tabTab = new QTabWidget(&dialog);
  Name(*c.tabTab, "tabTab");
  SetRole(*c.tabTab, role::kPages);
  c.tabTab->setAttribute(Qt::WA_StyledBackground);
  c.tabTab->tabBar()->setDrawBase(false);
  // The bar keeps the sizes that its tabs have when they are added.
  c.tabTab->tabBar()->ensurePolished();
  c.tabTab->tabBar()->setAccessibleName(QStringLiteral("Seite der Optionen"));
  c.tabTab->addTab(BuildCommunicationPage(dialog, c),
                   QStringLiteral("&Kommunikationseinstellungen"));
  c.tabTab->addTab(BuildSpeedDialPage(dialog, c), QStringLiteral("Kurzwahl&speicher"));
}

QFrame* BuildCommands(QWidget& dialog, OptionsControls& c) {
  static constexpr struct {
    const char* caption;
    const char* role;
    const char* description;
  } kCommands[] = {
      {"Ü&bernehmen", role::kPrimary, "Einstellungen und Kurzwahlspeicher speichern"},
      {"Abb&rechen", role::kPlain, "Alle Änderungen verwerfen"},
  };
  QFrame* strip = NewPanel(dialog, nullptr, role::kFoot);
  auto* row = new QHBoxLayout(strip);
  row->setContentsMargins(12, 8, 12, 10);
  row->setSpacing(8);
  row->addStretch();
  for (std::size_t i = 0; i < c.cmdAktion.size(); ++i) {
    auto* button = new IconButton(strip);
    Name(*button, "cmdAktion", i);
    SetRole(*button, kCommands[i].role);
    button->setText(QString::fromUtf8(kCommands[i].caption));
    button->setToolTip(QString::fromUtf8(kCommands[i].description));
    button->setMinimumWidth(kCommandWidth);
    AtLeastHigh(*button, kCommandHeight);
    row->addWidget(button);
    c.cmdAktion[i] = button;
  }
  return strip;
}

// Enter presses the button with the focus, and applies when the focus is elsewhere.
void SetUpEnter(QWidget& dialog, const OptionsControls& c) {
  for (auto* button : dialog.findChildren<QPushButton*>()) button->setAutoDefault(true);
  c.cmdAktion[0]->setDefault(true);
}

}  // namespace

OptionsControls BuildOptionsControls(QWidget& dialog) {
  OptionsControls c;
  BuildHead(dialog, c);
  BuildPages(dialog, c);
  QFrame* commands = BuildCommands(dialog, c);
  auto* column = new QVBoxLayout(&dialog);
  column->setContentsMargins(kFrameWidth, kFrameWidth, kFrameWidth, kFrameWidth);
  column->setSpacing(0);
  column->addWidget(c.panHead);
  column->addWidget(c.tabTab, 1);
  column->addWidget(commands);
  SetUpEnter(dialog, c);
  return c;
}

}  // namespace orvane
