#include "ui/dial/dial_views.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>
#include <initializer_list>

#include "ui/logic/view_toggle.h"
#include "ui/style/command_button.h"
#include "ui/style/elided_label.h"
#include "ui/style/style_sheet.h"

namespace orvane {
namespace {

constexpr int kKeysInARow = 3;
constexpr int kFullRowHeight = 32;
// Title, number row and keys leave the compact window 64 pixels high with its frame.
constexpr int kCompactTitleHeight = 15;
constexpr int kCompactRowHeight = 24;
constexpr int kCompactKeyHeight = 18;
constexpr int kCompactMargin = 4;
constexpr int kCompactStripMargin = 2;
constexpr int kCompactDialWidth = 104;

void PlaceKeys(DialControls& c, int columns, int spacing, QSizePolicy::Policy growth) {
  for (std::size_t i = 0; i < kKeyOrder.size(); ++i) {
    CommandButton* key = c.keys[kKeyOrder[i]];
    key->setSizePolicy(QSizePolicy::Ignored, growth);
    c.keypad->addWidget(key, static_cast<int>(i) / columns, static_cast<int>(i) % columns);
  }
  c.keypad->setSpacing(spacing);
}

void ShowFullViewParts(const DialControls& c, bool shown) {
  for (QWidget* part :
       std::initializer_list<QWidget*>{c.display, c.speedDialRow, c.checkBoxRow, c.log}) {
    part->setVisible(shown);
  }
  c.dialButtons[0]->setVisible(shown);
  c.dialButtons[1]->setVisible(!shown);
}

void SizeTitle(const DialControls& c, QSize button, int logoSide, const char* captionRole) {
  c.closeButton->setFixedSize(button);
  c.viewSwitch->setFixedSize(button);
  c.logo->setFixedSize(logoSide, logoSide);
  SetRole(*c.statusLabels[0], captionRole);
}

}  // namespace

void ArrangeFullView(DialControls& c) {
  SizeTitle(c, QSize(22, 18), 14, role::kTitleCaption);
  c.titleBar->layout()->setContentsMargins(8, 2, 6, 2);
  c.titleBar->setMinimumHeight(0);
  c.titleBar->setMaximumHeight(QWIDGETSIZE_MAX);
  c.numberStrip->layout()->setContentsMargins(6, 4, 6, 4);
  c.numberField->setMaximumHeight(QWIDGETSIZE_MAX);
  c.numberField->setMinimumHeight(std::max(kFullRowHeight, c.numberField->sizeHint().height()));
  c.padBody->setContentsMargins(kBodyMargin, 6, kBodyMargin, 6);
  c.padBody->setSpacing(6);
  for (CommandButton* key : c.keys) {
    SetRole(*key, role::kKey);
    key->setMinimumHeight(0);
    key->setMaximumHeight(QWIDGETSIZE_MAX);
  }
  PlaceKeys(c, kKeysInARow, 5, QSizePolicy::Expanding);
  ShowFullViewParts(c, true);
}

void ArrangeCompactView(DialControls& c) {
  SizeTitle(c, QSize(22, 13), 11, role::kSmallTitleCaption);
  c.titleBar->layout()->setContentsMargins(8, 0, 6, 0);
  c.titleBar->setFixedHeight(kCompactTitleHeight);
  c.numberStrip->layout()->setContentsMargins(kCompactMargin, kCompactStripMargin, kCompactMargin,
                                              kCompactStripMargin);
  c.numberField->setFixedHeight(kCompactRowHeight);
  c.dialButtons[1]->setFixedSize(kCompactDialWidth, kCompactRowHeight);
  c.padBody->setContentsMargins(kCompactMargin, 0, kCompactMargin, 1);
  c.padBody->setSpacing(0);
  for (CommandButton* key : c.keys) {
    SetRole(*key, role::kSmallKey);
    key->setFixedHeight(kCompactKeyHeight);
  }
  PlaceKeys(c, static_cast<int>(kKeyOrder.size()), 3, QSizePolicy::Fixed);
  ShowFullViewParts(c, false);

  // The hidden options button ends where the row of keys does, and the panel ends below it.
  const int keysBottom = kCompactRowHeight + 2 * kCompactStripMargin + kCompactKeyHeight;
  c.optionsButton->move(0, keysBottom - c.optionsButton->height());
  c.body->setFixedHeight(CompactPanelHeight(c.optionsButton->y() * kTwipsPerPixel,
                                            c.optionsButton->height() * kTwipsPerPixel) /
                         kTwipsPerPixel);
}

}  // namespace orvane
