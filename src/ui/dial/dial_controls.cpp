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
constexpr int kKeySpacing = 5;
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
  c.panBase = NewPanel(window, "panBase", role::kTitle);
  c.imgLogo = NewPicture(*c.panBase, "imgLogo", Glyph::kLogo, &Palette::logo, "Brisko");
  c.lblBase[0] = NewLabel(*c.panBase, nullptr);
  c.lblBase[0]->setText(QStringLiteral("Brisko"));
  c.hovClose = NewIconButton<IconButton>(*c.panBase, "hovClose", role::kTitleButton, Glyph::kClose,
                                         &Palette::onFrame, "Schließen");
  c.hovClose->setIconSize(QSize(11, 11));
  c.hovClose->setFixedSize(22, 18);

  auto* row = new QHBoxLayout(c.panBase);
  row->setContentsMargins(8, 2, 6, 2);
  row->setSpacing(6);
  row->addWidget(c.imgLogo);
  row->addWidget(c.lblBase[0], 1);
  row->addWidget(c.hovClose);
}

QFrame* BuildNumberStrip(DialControls& c) {
  QFrame* strip = NewPanel(*c.dialPad, nullptr, role::kStrip);
  c.txtNr = new QLineEdit(strip);
  Name(*c.txtNr, "txtNr");
  SetRole(*c.txtNr, role::kNumber);
  Describe(*c.txtNr, "Rufnummer");
  c.txtNr->setFont(TabularDigitFont(c.txtNr->font()));
  AtLeastHigh(*c.txtNr, kToolSide);

  c.cmdClear = NewClearButton(*c.txtNr, "cmdClear", "Rufnummernfeld leeren");

  const auto newTool = [&](const char* name, Glyph glyph, const char* description) {
    return NewIconButton<IconButton>(*strip, name, role::kTool, glyph, &Palette::heading,
                                     description);
  };
  c.cmdWdh = newTool("cmdWdh", Glyph::kRedial, "Letzte gewählte Nummer");
  c.cmdGetClpbrd =
      newTool("cmdGetClpbrd", Glyph::kClipboard, "Rufnummer aus Zwischenablage übernehmen");
  c.cmdHistory = NewIconButton<CommandButton>(*strip, "cmdHistory", role::kTool, Glyph::kHistory,
                                              &Palette::heading, "Anrufhistorie");
  c.cmdOptionen = newTool("cmdOptionen", Glyph::kGear, "Optionen");

  auto* row = new QHBoxLayout(strip);
  row->setContentsMargins(6, 4, 6, 4);
  row->setSpacing(4);
  row->addWidget(c.txtNr, 1);
  for (QWidget* tool :
       {c.cmdWdh, c.cmdGetClpbrd, static_cast<QPushButton*>(c.cmdHistory), c.cmdOptionen}) {
    row->addWidget(tool);
  }
  return strip;
}

void BuildDisplay(DialControls& c) {
  c.tabDisplay = NewPanel(*c.dialPad, "tabDisplay", role::kCard);
  c.tabDisplay->setFocusPolicy(Qt::StrongFocus);
  c.tabDisplay->setAccessibleName(QStringLiteral("Anzeige, Tasten wählen die Rufnummer"));
  c.lblHead = NewLabel(*c.tabDisplay, role::kHeading);
  c.lblHead->setMinimumWidth(kHeadWidth);
  c.lblBase[1] = NewLabel(*c.tabDisplay, role::kMuted);
  c.lblBase[2] = NewLabel(*c.tabDisplay, role::kReady);
  c.lblBase[3] = NewLabel(*c.tabDisplay, role::kReady);
  c.lblAdr = NewLabel(*c.tabDisplay, nullptr);
  c.lblAdr->SetLineCount(kContactLines);
  for (const std::size_t status : {2U, 3U}) {
    c.lblBase[status]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  }

  auto* grid = new QGridLayout(c.tabDisplay);
  grid->setContentsMargins(10, 5, 10, 4);
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(0);
  grid->addWidget(c.lblHead, 0, 0);
  grid->addWidget(c.lblBase[2], 0, 1);
  grid->addWidget(c.lblBase[1], 1, 0);
  grid->addWidget(c.lblBase[3], 1, 1);
  grid->addWidget(c.lblAdr, 2, 0, 1, 2);
  grid->setColumnStretch(0, 1);
}

QGridLayout* BuildKeypad(DialControls& c) {
  struct Key {
    std::size_t index;
    const char* caption;
    const char* letters;
    const char* spokenName;
  };
  // In reading order, three in a row.
  static constexpr Key kKeys[] = {
      {1, "1", "", "1"},     {2, "2", "ABC", "2"},   {3, "3", "DEF", "3"},  {4, "4", "GHI", "4"},
      {5, "5", "JKL", "5"},  {6, "6", "MNO", "6"},   {7, "7", "PQRS", "7"}, {8, "8", "TUV", "8"},
      {9, "9", "WXYZ", "9"}, {10, "*", "", "Stern"}, {0, "0", "", "0"},     {11, "#", "", "Raute"},
  };
  auto* grid = new QGridLayout;
  grid->setSpacing(kKeySpacing);
  int position = 0;
  for (const Key& key : kKeys) {
    auto* button = new KeypadButton(c.dialPad, QString::fromLatin1(key.caption),
                                    QString::fromLatin1(key.letters));
    Name(*button, "cmdNr", key.index);
    SetRole(*button, role::kKey);
    button->setAccessibleName(QStringLiteral("Taste %1").arg(QString::fromLatin1(key.spokenName)));
    button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
    grid->addWidget(button, position / 3, position % 3);
    c.cmdNr[key.index] = button;
    ++position;
  }
  return grid;
}

QHBoxLayout* BuildSpeedDial(DialControls& c) {
  c.imgInt = NewPicture(*c.dialPad, "imgInt", Glyph::kInternal, &Palette::internalMarker,
                        "Interner Eintrag");
  c.imgExt = NewPicture(*c.dialPad, "imgExt", Glyph::kExternal, &Palette::externalMarker,
                        "Externer Eintrag");
  c.imgInt->hide();
  c.imgExt->hide();
  c.cboNr = new DropDown(c.dialPad);
  Name(*c.cboNr, "cboNr");
  c.cboNr->setPlaceholderText(QStringLiteral("Kurzwahlspeicher"));
  c.cboNr->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  c.cboNr->setIconSize(QSize(kMarkerSide, kMarkerSide));
  AtLeastHigh(*c.cboNr, 30);
  Describe(*c.cboNr, "Kurzwahlspeicher");

  auto* row = new QHBoxLayout;
  row->setSpacing(6);
  row->addWidget(c.imgInt);
  row->addWidget(c.imgExt);
  row->addWidget(c.cboNr, 1);
  return row;
}

QHBoxLayout* BuildCheckBoxes(DialControls& c) {
  const auto newBox = [&](const char* name, const char* caption, const char* description) {
    auto* box = new CheckBox(QString::fromUtf8(caption), c.dialPad);
    Name(*box, name);
    box->setToolTip(QString::fromUtf8(description));
    QSizePolicy policy = box->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    box->setSizePolicy(policy);
    box->hide();
    return box;
  };
  c.chkExtern = newBox("chkExtern", "&extern", "Externe Rufnummer: mit Amtsholung wählen");
  c.chkDevDial = newBox("chkDevDial", "&Testwahl über COM1",
                        "Für Entwickler: immer über das Modem an COM1 wählen");
  auto* row = new QHBoxLayout;
  row->setSpacing(12);
  row->addWidget(c.chkExtern);
  row->addWidget(c.chkDevDial);
  row->addStretch();
  return row;
}

void BuildDialButtons(DialControls& c) {
  for (std::size_t view = 0; view < c.cmdDial.size(); ++view) {
    auto* button = new CommandButton(c.dialPad);
    Name(*button, "cmdDial", view);
    button->setIconSize(QSize(22, 22));
    AtLeastHigh(*button, 40);
    c.cmdDial[view] = button;
  }
  c.cmdDial[1]->hide();
}

QFrame* BuildLog(DialControls& c) {
  QFrame* log = c.log = NewPanel(*c.dialPad, nullptr, role::kLog);
  log->setFixedHeight(std::max(kLogHeight, kLogLines * log->fontMetrics().lineSpacing() + 10));
  c.shpBottom = NewPanel(*log, "shpBottom", role::kLogEdge);
  c.shpBottom->setFixedHeight(2);
  QSizePolicy edge = c.shpBottom->sizePolicy();
  edge.setRetainSizeWhenHidden(true);
  c.shpBottom->setSizePolicy(edge);
  c.shpBottom->hide();

  c.lstCallProgress = new QListWidget(log);
  Name(*c.lstCallProgress, "lstCallProgress");
  SetRole(*c.lstCallProgress, role::kLog);
  c.lstCallProgress->setAccessibleName(QStringLiteral("Gesprächsverlauf"));
  c.lstCallProgress->setSelectionMode(QAbstractItemView::NoSelection);
  c.lstCallProgress->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  c.lstCallProgress->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  c.lstCallProgress->setTextElideMode(Qt::ElideRight);

  c.lblVer = new QLabel(log);
  Name(*c.lblVer, "lblVer");
  SetRole(*c.lblVer, role::kVersion);
  c.lblVer->setAttribute(Qt::WA_TransparentForMouseEvents);

  auto* grid = new QGridLayout(log);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(0);
  grid->addWidget(c.shpBottom, 0, 0);
  grid->addWidget(c.lstCallProgress, 1, 0);
  grid->addWidget(c.lblVer, 1, 0, Qt::AlignRight | Qt::AlignBottom);
  grid->setRowStretch(1, 1);
  c.lblVer->setContentsMargins(0, 0, 10, 6);
  return log;
}

void BuildDialPad(DialControls& c) {
  c.dialPad = NewPanel(*c.infBase, nullptr, role::kPlain);
  auto* column = new QVBoxLayout(c.dialPad);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(BuildNumberStrip(c));

  auto* body = new QVBoxLayout;
  body->setContentsMargins(kBodyMargin, 6, kBodyMargin, 6);
  body->setSpacing(6);
  BuildDisplay(c);
  body->addWidget(c.tabDisplay);
  body->addLayout(BuildKeypad(c), 1);
  body->addLayout(BuildSpeedDial(c));
  body->addLayout(BuildCheckBoxes(c));
  BuildDialButtons(c);
  body->addWidget(c.cmdDial[0]);
  column->addLayout(body, 1);
  column->addWidget(BuildLog(c));
}

void BuildBody(QWidget& window, DialControls& c) {
  c.infBase = NewPanel(window, "infBase", role::kBody);
  auto* row = new QHBoxLayout(c.infBase);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  BuildDialPad(c);
  row->addWidget(c.dialPad);
  row->addWidget(BuildHistory(c));
}

void SetTabOrder(const DialControls& c) {
  std::vector<QWidget*> order = {c.txtNr,      c.cmdClear,    c.cmdWdh,    c.cmdGetClpbrd,
                                 c.cmdHistory, c.cmdOptionen, c.tabDisplay};
  for (const std::size_t key : {1U, 2U, 3U, 4U, 5U, 6U, 7U, 8U, 9U, 10U, 0U, 11U}) {
    order.push_back(c.cmdNr[key]);
  }
  order.insert(order.end(), {c.cboNr, c.chkExtern, c.chkDevDial, c.cmdDial[0], c.lstCallProgress});
  order.insert(order.end(), {static_cast<QWidget*>(c.tabTab), c.cboFilter});
  order.insert(order.end(), c.chkTelList.begin(), c.chkTelList.end());
  order.insert(order.end(),
               {static_cast<QWidget*>(c.txtFilter), c.cmdClrTextFilter, c.repTel, c.hovClose});
  for (std::size_t i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
}

}  // namespace

DialControls BuildDialControls(QWidget& window) {
  DialControls c;
  BuildTitle(window, c);
  BuildBody(window, c);
  for (std::size_t i = 0; i < c.lblBase.size(); ++i) Name(*c.lblBase[i], "lblBase", i);
  Name(*c.lblHead, "lblHead");
  Name(*c.lblAdr, "lblAdr");

  auto* column = new QVBoxLayout(&window);
  column->setContentsMargins(kFrameWidth, kFrameWidth, kFrameWidth, kFrameWidth);
  column->setSpacing(0);
  column->addWidget(c.panBase);
  column->addWidget(c.infBase, 1);
  SetTabOrder(c);
  const QSize size = column->minimumSize().expandedTo(kFullViewSize);
  window.setFixedSize(size);
  // The dial pad stays as wide when the window grows.
  c.dialPad->setFixedWidth(size.width() - 2 * kFrameWidth);
  c.tabDisplay->setFixedWidth(c.dialPad->width() - 2 * kBodyMargin);
  return c;
}

}  // namespace orvane
