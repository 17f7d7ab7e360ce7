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
  c.panBase = NewPanel(window, "panBase", role::kTitle);
  c.imgLogo = NewPicture(*c.panBase, "imgLogo", Glyph::kLogo, &Palette::logo, "Brisko");
  c.lblBase[0] = NewLabel(*c.panBase, nullptr);
  c.lblBase[0]->setText(QStringLiteral("Brisko"));
  const auto newButton = [&](const char* name, Glyph glyph, const char* description) {
    auto* button = NewIconButton<IconButton>(*c.panBase, name, role::kTitleButton, glyph,
                                             &Palette::onFrame, description);
    button->setIconSize(QSize(11, 11));
    return button;
  };
  c.hovSizer = newButton("hovSizer", Glyph::kArrowUp, "Kompaktansicht");
  c.hovClose = newButton("hovClose", Glyph::kClose, "Schließen");

  auto* row = new QHBoxLayout(c.panBase);
  row->setSpacing(6);
  row->addWidget(c.imgLogo);
  row->addWidget(c.lblBase[0], 1);
  row->addWidget(c.hovSizer);
  row->addWidget(c.hovClose);
}

void BuildNumberStrip(DialControls& c) {
  QFrame* strip = NewPanel(*c.dialPad, nullptr, role::kStrip);
  c.numberStrip = strip;
  c.txtNr = new QLineEdit(strip);
  Name(*c.txtNr, "txtNr");
  SetRole(*c.txtNr, role::kNumber);
  Describe(*c.txtNr, "Rufnummer");
  c.txtNr->setFont(TabularDigitFont(c.txtNr->font()));

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
  row->setSpacing(4);
  row->addWidget(c.txtNr, 1);
  for (QWidget* tool :
       {c.cmdWdh, c.cmdGetClpbrd, static_cast<QPushButton*>(c.cmdHistory), c.cmdOptionen}) {
    row->addWidget(tool);
  }
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
    c.cmdNr[key.index] = button;
  }
}

void BuildSpeedDial(DialControls& c) {
  c.speedDialRow = new QWidget(c.dialPad);
  c.imgInt = NewPicture(*c.speedDialRow, "imgInt", Glyph::kInternal, &Palette::internalMarker,
                        "Interner Eintrag");
  c.imgExt = NewPicture(*c.speedDialRow, "imgExt", Glyph::kExternal, &Palette::externalMarker,
                        "Externer Eintrag");
  c.imgInt->hide();
  c.imgExt->hide();
  c.cboNr = new DropDown(c.speedDialRow);
  Name(*c.cboNr, "cboNr");
  c.cboNr->setPlaceholderText(QStringLiteral("Kurzwahlspeicher"));
  c.cboNr->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  c.cboNr->setIconSize(QSize(kMarkerSide, kMarkerSide));
  AtLeastHigh(*c.cboNr, 30);
  Describe(*c.cboNr, "Kurzwahlspeicher");

  auto* row = new QHBoxLayout(c.speedDialRow);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(6);
  row->addWidget(c.imgInt);
  row->addWidget(c.imgExt);
  row->addWidget(c.cboNr, 1);
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
  c.chkExtern = newBox("chkExtern", "&extern", "Externe Rufnummer: mit Amtsholung wählen");
  c.chkDevDial = newBox("chkDevDial", "&Testwahl über COM1",
                        "Für Entwickler: immer über das Modem an COM1 wählen");
  auto* row = new QHBoxLayout(c.checkBoxRow);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(12);
  row->addWidget(c.chkExtern);
  row->addWidget(c.chkDevDial);
  row->addStretch();
}

void BuildDialButtons(DialControls& c) {
  for (std::size_t view = 0; view < c.cmdDial.size(); ++view) {
    auto* button = new CommandButton(view == 0 ? c.dialPad : c.numberStrip);
    Name(*button, "cmdDial", view);
    c.cmdDial[view] = button;
  }
  c.cmdDial[0]->setIconSize(QSize(22, 22));
  AtLeastHigh(*c.cmdDial[0], 40);
  c.cmdDial[1]->setIconSize(QSize(15, 15));
  c.numberStrip->layout()->addWidget(c.cmdDial[1]);
}

void BuildLog(DialControls& c) {
  QFrame* log = NewPanel(*c.dialPad, nullptr, role::kLog);
  c.log = log;
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
}

void BuildDialPad(DialControls& c) {
  c.dialPad = NewPanel(*c.infBase, nullptr, role::kPlain);
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
  c.padBody->addWidget(c.tabDisplay);
  c.padBody->addLayout(c.keypad, 1);
  c.padBody->addWidget(c.speedDialRow);
  c.padBody->addWidget(c.checkBoxRow);
  c.padBody->addWidget(c.cmdDial[0]);
  column->addWidget(c.numberStrip);
  column->addLayout(c.padBody, 1);
  column->addWidget(c.log);
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
  for (const std::size_t key : kKeyOrder) order.push_back(c.cmdNr[key]);
  order.insert(order.end(),
               {c.cboNr, c.chkExtern, c.chkDevDial, c.cmdDial[0], c.cmdDial[1], c.lstCallProgress});
  order.insert(order.end(), {static_cast<QWidget*>(c.tabTab), c.cboFilter});
  order.insert(order.end(), c.chkTelList.begin(), c.chkTelList.end());
  order.insert(order.end(), {static_cast<QWidget*>(c.txtFilter), c.cmdClrTextFilter, c.repTel,
                             c.hovSizer, c.hovClose});
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
  ArrangeFullView(c);
  const QSize size = column->minimumSize().expandedTo(kFullViewSize);
  window.setFixedSize(size);
  // The dial pad stays as wide when the window grows.
  c.dialPad->setFixedWidth(size.width() - 2 * kFrameWidth);
  c.tabDisplay->setFixedWidth(c.dialPad->width() - 2 * kBodyMargin);
  c.infBase->setProperty(kDesignedHeightTag,
                         size.height() - 2 * kFrameWidth - c.panBase->sizeHint().height());
  return c;
}

}  // namespace orvane
