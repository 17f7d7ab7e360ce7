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
  c.titleBar = NewPanel(dialog, "panHead", role::kTitle);
  auto* logo = new Picture(c.titleBar, Glyph::kLogo, &Palette::logo, kLogoSide);
  logo->setAttribute(Qt::WA_TransparentForMouseEvents);
  c.title = new QLabel(QStringLiteral("Brisko :: Optionen"), c.titleBar);
  Name(*c.title, "lblHead");
  auto* row = new QHBoxLayout(c.titleBar);
  row->setContentsMargins(8, 4, 6, 4);
  row->setSpacing(6);
  row->addWidget(logo);
  row->addWidget(c.title, 1);
}

void BuildPages(QWidget& dialog, OptionsControls& c) {
  c.pages = new QTabWidget(&dialog);
  Name(*c.pages, "tabTab");
  SetRole(*c.pages, role::kPages);
  c.pages->setAttribute(Qt::WA_StyledBackground);
  c.pages->tabBar()->setDrawBase(false);
  // The bar keeps the sizes that its tabs have when they are added.
  c.pages->tabBar()->ensurePolished();
  c.pages->tabBar()->setAccessibleName(QStringLiteral("Seite der Optionen"));
  c.pages->addTab(BuildCommunicationPage(dialog, c),
                  QStringLiteral("&Kommunikationseinstellungen"));
  c.pages->addTab(BuildSpeedDialPage(dialog, c), QStringLiteral("Kurzwahl&speicher"));
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
  for (std::size_t i = 0; i < c.actions.size(); ++i) {
    auto* button = new IconButton(strip);
    Name(*button, "cmdAktion", i);
    SetRole(*button, kCommands[i].role);
    button->setText(QString::fromUtf8(kCommands[i].caption));
    button->setToolTip(QString::fromUtf8(kCommands[i].description));
    button->setMinimumWidth(kCommandWidth);
    AtLeastHigh(*button, kCommandHeight);
    row->addWidget(button);
    c.actions[i] = button;
  }
  return strip;
}

// Enter presses the button with the focus, and applies when the focus is elsewhere.
void SetUpEnter(QWidget& dialog, const OptionsControls& c) {
  for (auto* button : dialog.findChildren<QPushButton*>()) button->setAutoDefault(true);
  c.actions[0]->setDefault(true);
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
  column->addWidget(c.titleBar);
  column->addWidget(c.pages, 1);
  column->addWidget(commands);
  SetUpEnter(dialog, c);
  return c;
}

}  // namespace orvane
