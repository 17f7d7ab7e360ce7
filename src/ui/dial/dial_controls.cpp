#include "ui/dial/dial_controls.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTabBar>
#include <algorithm>
#include <string_view>
#include <vector>

#include "ui/dial/call_list_view.h"
#include "ui/dial/dial_views.h"
#include "ui/dial/history_controls.h"
#include "ui/dial/keypad_button.h"
#include "ui/style/check_box.h"
#include "ui/style/control_building.h"
#include "ui/style/drop_down.h"
#include "ui/style/elided_label.h"
#include "ui/style/glyph_icon.h"
#include "ui/style/icon_button.h"
#include "ui/style/picture.h"
#include "ui/style/style_sheet.h"
#include "ui/style/tabular_font.h"

namespace orvane {
namespace {

constexpr QSize kFullViewSize(318, 541);
constexpr int kMarkerSide = 14;
// What the status beside it leaves at least.
constexpr int kHeadWidth = 120;
constexpr int kContactLines = 4;
constexpr int kLogHeight = 76;
constexpr int kLogLines = 4;

QLabel* NewPicture(QWidget& parent, const char* name, Glyph glyph, QColor Palette::*colour,
                   const char* description) {
  auto* picture = new Picture(&parent, glyph, colour, kMarkerSide);
  Name(*picture, name);
  Describe(*picture, description);
  return picture;
}

void BuildTitle(QWidget& window, DialControls& c) {
  c.titleBar = NewPanel(window, "panBase", role::kTitle);
  c.logo = NewPicture(*c.titleBar, "imgLogo", Glyph::kLogo, &Palette::logo, "Brisko");
  c.statusLabels[0] = NewLabel(*c.titleBar, nullptr);
  c.statusLabels[0]->setText(QStringLiteral("Brisko"));
  const auto newButton = [&](const char* name, Glyph glyph, const char* description) {
    auto* button = NewIconButton<IconButton>(*c.titleBar, name, role::kTitleButton, glyph,
                                             &Palette::onFrame, description);
    button->setIconSize(QSize(11, 11));
    return button;
  };
  c.viewSwitch = newButton("hovSizer", Glyph::kArrowUp, "Kompaktansicht");
  c.closeButton = newButton("hovClose", Glyph::kClose, "Schließen");

  auto* row = new QHBoxLayout(c.titleBar);
  row->setSpacing(6);
  row->addWidget(c.logo);
  row->addWidget(c.statusLabels[0], 1);
  row->addWidget(c.viewSwitch);
  row->addWidget(c.closeButton);
}

void BuildNumberStrip(DialControls& c) {
  QFrame* strip = NewPanel(*c.dialPad, nullptr, role::kStrip);
  c.numberStrip = strip;
  c.numberField = new QLineEdit(strip);
  Name(*c.numberField, "txtNr");
  SetRole(*c.numberField, role::kNumber);
  Describe(*c.numberField, "Rufnummer");
  c.numberField->setFont(TabularDigitFont(c.numberField->font()));

  c.clearButton = NewClearButton(*c.numberField, "cmdClear", "Rufnummernfeld leeren");

  const auto newTool = [&](const char* name, Glyph glyph, const char* description) {
    return NewIconButton<IconButton>(*strip, name, role::kTool, glyph, &Palette::heading,
                                     description);
  };
  c.redialButton = newTool("cmdWdh", Glyph::kRedial, "Letzte gewählte Nummer");
  c.pasteButton =
      newTool("cmdGetClpbrd", Glyph::kClipboard, "Rufnummer aus Zwischenablage übernehmen");
  c.historyButton = NewIconButton<CommandButton>(*strip, "cmdHistory", role::kTool, Glyph::kHistory,
                                                 &Palette::heading, "Anrufhistorie");
  c.optionsButton = newTool("cmdOptionen", Glyph::kGear, "Optionen");

  auto* row = new QHBoxLayout(strip);
  row->setSpacing(4);
  row->addWidget(c.numberField, 1);
  for (QWidget* tool : {c.redialButton, c.pasteButton, static_cast<QPushButton*>(c.historyButton),
                        c.optionsButton}) {
    row->addWidget(tool);
  }
}

void BuildDisplay(DialControls& c) {
  c.display = NewPanel(*c.dialPad, "tabDisplay", role::kCard);
  c.display->setFocusPolicy(Qt::StrongFocus);
  c.display->setAccessibleName(QStringLiteral("Anzeige, Tasten wählen die Rufnummer"));
  c.destination = NewLabel(*c.display, role::kHeading);
  c.destination->setMinimumWidth(kHeadWidth);
  c.statusLabels[1] = NewLabel(*c.display, role::kMuted);
  c.statusLabels[2] = NewLabel(*c.display, role::kReady);
  c.statusLabels[3] = NewLabel(*c.display, role::kReady);
  c.contact = NewLabel(*c.display, nullptr);
  c.contact->SetLineCount(kContactLines);
  for (const std::size_t status : {2U, 3U}) {
    c.statusLabels[status]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  }

  auto* grid = new QGridLayout(c.display);
  grid->setContentsMargins(10, 5, 10, 4);
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(0);
  grid->addWidget(c.destination, 0, 0);
  grid->addWidget(c.statusLabels[2], 0, 1);
  grid->addWidget(c.statusLabels[1], 1, 0);
  grid->addWidget(c.statusLabels[3], 1, 1);
  grid->addWidget(c.contact, 2, 0, 1, 2);
  grid->setColumnStretch(0, 1);
}

void BuildKeypad(DialControls& c) {
  struct Key {
    std::size_t index;
    const char* caption;
    const char* letters;
    const char* spokenName;
  };
  static constexpr Key kKeys[] = {
      {1, "1", "", "1"},     {2, "2", "ABC", "2"},   {3, "3", "DEF", "3"},  {4, "4", "GHI", "4"},
      {5, "5", "JKL", "5"},  {6, "6", "MNO", "6"},   {7, "7", "PQRS", "7"}, {8, "8", "TUV", "8"},
      {9, "9", "WXYZ", "9"}, {10, "*", "", "Stern"}, {0, "0", "", "0"},     {11, "#", "", "Raute"},
  };
  c.keypad = new QGridLayout;
  for (const Key& key : kKeys) {
    auto* button = new KeypadButton(c.dialPad, QString::fromLatin1(key.caption),
                                    QString::fromLatin1(key.letters));
    Name(*button, "cmdNr", key.index);
    SetRole(*button, role::kKey);
    button->setAccessibleName(QStringLiteral("Taste %1").arg(QString::fromLatin1(key.spokenName)));
    c.keys[key.index] = button;
  }
}

void BuildSpeedDial(DialControls& c) {
  c.speedDialRow = new QWidget(c.dialPad);
  c.internalMark = NewPicture(*c.speedDialRow, "imgInt", Glyph::kInternal, &Palette::internalMarker,
                              "Interner Eintrag");
  c.externalMark = NewPicture(*c.speedDialRow, "imgExt", Glyph::kExternal, &Palette::externalMarker,
                              "Externer Eintrag");
  c.internalMark->hide();
  c.externalMark->hide();
  c.speedDial = new DropDown(c.speedDialRow);
  Name(*c.speedDial, "cboNr");
  c.speedDial->setPlaceholderText(QStringLiteral("Kurzwahlspeicher"));
  c.speedDial->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  c.speedDial->setIconSize(QSize(kMarkerSide, kMarkerSide));
  AtLeastHigh(*c.speedDial, 30);
  Describe(*c.speedDial, "Kurzwahlspeicher");

  auto* row = new QHBoxLayout(c.speedDialRow);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(6);
  row->addWidget(c.internalMark);
  row->addWidget(c.externalMark);
  row->addWidget(c.speedDial, 1);
}

void BuildCheckBoxes(DialControls& c) {
  c.checkBoxRow = new QWidget(c.dialPad);
  const auto newBox = [&](const char* name, const char* caption, const char* description) {
    auto* box = new CheckBox(QString::fromUtf8(caption), c.checkBoxRow);
    Name(*box, name);
    box->setToolTip(QString::fromUtf8(description));
    QSizePolicy policy = box->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    box->setSizePolicy(policy);
    box->hide();
    return box;
  };
  c.externalBox = newBox("chkExtern", "&extern", "Externe Rufnummer: mit Amtsholung wählen");
  c.developerBox = newBox("chkDevDial", "&Testwahl über COM1",
                          "Für Entwickler: immer über das Modem an COM1 wählen");
  auto* row = new QHBoxLayout(c.checkBoxRow);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(12);
  row->addWidget(c.externalBox);
  row->addWidget(c.developerBox);
  row->addStretch();
}

void BuildDialButtons(DialControls& c) {
  for (std::size_t view = 0; view < c.dialButtons.size(); ++view) {
    auto* button = new CommandButton(view == 0 ? c.dialPad : c.numberStrip);
    Name(*button, "cmdDial", view);
    c.dialButtons[view] = button;
  }
  c.dialButtons[0]->setIconSize(QSize(22, 22));
  AtLeastHigh(*c.dialButtons[0], 40);
  c.dialButtons[1]->setIconSize(QSize(15, 15));
  c.numberStrip->layout()->addWidget(c.dialButtons[1]);
}

void BuildLog(DialControls& c) {
  QFrame* log = NewPanel(*c.dialPad, nullptr, role::kLog);
  c.log = log;
  log->setFixedHeight(std::max(kLogHeight, kLogLines * log->fontMetrics().lineSpacing() + 10));
  c.bottomLine = NewPanel(*log, "shpBottom", role::kLogEdge);
  c.bottomLine->setFixedHeight(2);
  QSizePolicy edge = c.bottomLine->sizePolicy();
  edge.setRetainSizeWhenHidden(true);
  c.bottomLine->setSizePolicy(edge);
  c.bottomLine->hide();

  c.progressLog = new QListWidget(log);
  Name(*c.progressLog, "lstCallProgress");
  SetRole(*c.progressLog, role::kLog);
  c.progressLog->setAccessibleName(QStringLiteral("Gesprächsverlauf"));
  c.progressLog->setSelectionMode(QAbstractItemView::NoSelection);
  c.progressLog->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  c.progressLog->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  c.progressLog->setTextElideMode(Qt::ElideRight);

  c.version = new QLabel(log);
  Name(*c.version, "lblVer");
  SetRole(*c.version, role::kVersion);
  c.version->setAttribute(Qt::WA_TransparentForMouseEvents);

  auto* grid = new QGridLayout(log);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(0);
  grid->addWidget(c.bottomLine, 0, 0);
  grid->addWidget(c.progressLog, 1, 0);
  grid->addWidget(c.version, 1, 0, Qt::AlignRight | Qt::AlignBottom);
  grid->setRowStretch(1, 1);
  c.version->setContentsMargins(0, 0, 10, 6);
}

void BuildDialPad(DialControls& c) {
  c.dialPad = NewPanel(*c.body, nullptr, role::kPlain);
  auto* column = new QVBoxLayout(c.dialPad);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  BuildNumberStrip(c);
  BuildDisplay(c);
  BuildKeypad(c);
  BuildSpeedDial(c);
  BuildCheckBoxes(c);
  BuildDialButtons(c);
  BuildLog(c);

  c.padBody = new QVBoxLayout;
  c.padBody->addWidget(c.display);
  c.padBody->addLayout(c.keypad, 1);
  c.padBody->addWidget(c.speedDialRow);
  c.padBody->addWidget(c.checkBoxRow);
  c.padBody->addWidget(c.dialButtons[0]);
  column->addWidget(c.numberStrip);
  column->addLayout(c.padBody, 1);
  column->addWidget(c.log);
}

void BuildBody(QWidget& window, DialControls& c) {
  c.body = NewPanel(window, "infBase", role::kBody);
  auto* row = new QHBoxLayout(c.body);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  BuildDialPad(c);
  row->addWidget(c.dialPad);
  row->addWidget(BuildHistory(c));
}

void SetTabOrder(const DialControls& c) {
  std::vector<QWidget*> order = {c.numberField,   c.clearButton,   c.redialButton, c.pasteButton,
                                 c.historyButton, c.optionsButton, c.display};
  for (const std::size_t key : kKeyOrder) order.push_back(c.keys[key]);
  order.insert(order.end(), {c.speedDial, c.externalBox, c.developerBox, c.dialButtons[0],
                             c.dialButtons[1], c.progressLog});
  order.insert(order.end(), {static_cast<QWidget*>(c.callTabs), c.period});
  order.insert(order.end(), c.callKinds.begin(), c.callKinds.end());
  order.insert(order.end(), {static_cast<QWidget*>(c.textFilter), c.clearTextFilter, c.callList,
                             c.viewSwitch, c.closeButton});
  for (std::size_t i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
}

}  // namespace

DialControls BuildDialControls(QWidget& window) {
  DialControls c;
  BuildTitle(window, c);
  BuildBody(window, c);
  for (std::size_t i = 0; i < c.statusLabels.size(); ++i) Name(*c.statusLabels[i], "lblBase", i);
  Name(*c.destination, "lblHead");
  Name(*c.contact, "lblAdr");

  auto* column = new QVBoxLayout(&window);
  column->setContentsMargins(kFrameWidth, kFrameWidth, kFrameWidth, kFrameWidth);
  column->setSpacing(0);
  column->addWidget(c.titleBar);
  column->addWidget(c.body, 1);
  SetTabOrder(c);
  ArrangeFullView(c);
  const QSize size = column->minimumSize().expandedTo(kFullViewSize);
  window.setFixedSize(size);
  // The dial pad stays as wide when the window grows.
  c.dialPad->setFixedWidth(size.width() - 2 * kFrameWidth);
  c.display->setFixedWidth(c.dialPad->width() - 2 * kBodyMargin);
  c.body->setProperty(kDesignedHeightTag,
                      size.height() - 2 * kFrameWidth - c.titleBar->sizeHint().height());
  return c;
}

}  // namespace orvane
