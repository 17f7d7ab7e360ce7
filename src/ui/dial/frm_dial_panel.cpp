// What the rest of the program shows in the dial window and reads from it.
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QStandardItemModel>

#include "ui/dial/frm_dial.h"
#include "ui/logic/speed_dial_selection.h"
#include "ui/logic/window_geometry.h"
#include "ui/style/command_button.h"
#include "ui/style/drop_down.h"
#include "ui/style/elided_label.h"
#include "ui/style/glyph_icon.h"
#include "ui/style/style_sheet.h"

namespace orvane {
namespace {

constexpr std::string_view kReadyHeadline = "<Bereit>";
constexpr char kTagProperty[] = "tag";

// A window of at most this height shows the compact view.
constexpr int kCompactFocusHeightTwips = 1500;

QIcon KindIcon(SpeedDialKind kind) {
  return kind == SpeedDialKind::kInternal ? GlyphIcon(Glyph::kInternal, &Palette::internalMarker)
                                          : GlyphIcon(Glyph::kExternal, &Palette::externalMarker);
}

}  // namespace

void frmDial::SetExternVisible(bool visible) {
  c_.chkExtern->setVisible(visible);
}

void frmDial::ResetSpeedDial() {
  speedDialSelectable_ = false;
  c_.cboNr->clear();
  c_.cboNr->setCurrentIndex(-1);
  c_.cboNr->setProperty(kTagProperty, QString());
  ShowSpeedDialKind(-1);
}

void frmDial::AddSpeedDialEntry(const std::string& text) {
  const SpeedDialEntry entry = ParseSpeedDialEntry(text);
  const QString name = QString::fromStdString(entry.name);
  c_.cboNr->addItem(entry.kind ? KindIcon(*entry.kind) : QIcon(), name,
                    entry.kind ? QVariant(static_cast<int>(*entry.kind)) : QVariant());
  c_.cboNr->setItemData(c_.cboNr->count() - 1, name, Qt::ToolTipRole);
  c_.cboNr->setCurrentIndex(-1);
  SetSpeedDialSelectable(speedDialSelectable_);
}

void frmDial::SetSpeedDialNumbers(const std::string& numbers) {
  c_.cboNr->setProperty(kTagProperty, QString::fromStdString(numbers));
}

void frmDial::SetSpeedDialSelectable(bool selectable) {
  speedDialSelectable_ = selectable;
  auto* model = static_cast<QStandardItemModel*>(c_.cboNr->model());
  for (int row = 0; row < model->rowCount(); ++row) model->item(row)->setEnabled(selectable);
}

void frmDial::SetSpeedDialToolTip(const std::string& text) {
  const QString tip = QString::fromStdString(text);
  c_.cboNr->setToolTip(tip);
  c_.imgInt->setToolTip(tip);
  c_.imgExt->setToolTip(tip);
}

void frmDial::ShowSpeedDialKind(int index) {
  const QVariant kind = c_.cboNr->itemData(index);
  const auto is = [&](SpeedDialKind wanted) {
    return kind.isValid() && kind.toInt() == static_cast<int>(wanted);
  };
  c_.imgInt->setVisible(is(SpeedDialKind::kInternal));
  c_.imgExt->setVisible(is(SpeedDialKind::kExternal));
}

void frmDial::SetDialMethodStatus(const std::string& headline, const std::string& detail) {
  const char* statusRole = headline == kReadyHeadline ? role::kReady : role::kProblem;
  c_.lblBase[2]->setText(QString::fromStdString(headline));
  c_.lblBase[3]->setText(QString::fromStdString(detail));
  SetRole(*c_.lblBase[2], statusRole);
  SetRole(*c_.lblBase[3], statusRole);
}

void frmDial::AddStatus(const std::string& text) {
  c_.shpBottom->show();
  c_.lblVer->hide();
  QListWidget& log = *c_.lstCallProgress;
  auto* line = new QListWidgetItem(QString::fromStdString(text), &log);
  line->setToolTip(line->text());
  log.setCurrentRow(-1);
  log.scrollToBottom();
}

bool frmDial::ExternTicked() const {
  return c_.chkExtern->isChecked();
}

void frmDial::SetContactLabel(const std::string& text) {
  c_.lblAdr->setText(QString::fromStdString(text));
}

std::string frmDial::NumberText() const {
  return c_.txtNr->text().toStdString();
}

void frmDial::ClearStatus() {
  c_.lstCallProgress->clear();
}

void frmDial::SetDialButtonIdle(bool idle) {
  for (CommandButton* button : c_.cmdDial) {
    button->setIcon(idle ? DialPicture() : HangUpPicture());
    button->setText(idle ? QStringLiteral("&Wählen") : QStringLiteral("&Auflegen"));
    button->setAccessibleName(idle ? QStringLiteral("Wählen") : QStringLiteral("Auflegen"));
    button->setToolTip(idle ? QStringLiteral("Rufnummer wählen")
                            : QStringLiteral("Gespräch beenden"));
    SetRole(*button, idle ? role::kDial : role::kHangUp);
  }
  c_.cmdDial[0]->setChecked(!idle);
}

bool frmDial::SessionOn() const {
  return c_.cmdDial[0]->isChecked();
}

bool frmDial::WindowEnabled() const {
  return isEnabled();
}

void frmDial::SetDialButtonsEnabled(bool enabled) {
  // A button that is disabled loses the focus; left to itself it could go to the close button.
  const bool focused = c_.cmdDial[0]->hasFocus() || c_.cmdDial[1]->hasFocus();
  if (!enabled && focused) c_.txtNr->setFocus();
  for (CommandButton* button : c_.cmdDial) button->setEnabled(enabled);
}

void frmDial::FocusDialButton() {
  const bool compact = height() * kTwipsPerPixel <= kCompactFocusHeightTwips;
  c_.cmdDial[compact ? 1 : 0]->setFocus();
}

bool frmDial::JustPlaced() const {
  return c_.lstCallProgress->count() == 1 &&
         c_.lstCallProgress->item(0)->text().startsWith(QStringLiteral(">>>"));
}

bool frmDial::ExternVisible() const {
  // The compact view has no room for the box, but what it says counts there too.
  return !c_.chkExtern->isHidden();
}

void frmDial::SetExternTicked(bool ticked) {
  c_.chkExtern->setChecked(ticked);
}

bool frmDial::DevDialTicked() const {
  return c_.chkDevDial->isChecked();
}

bool frmDial::HistoryShown() const {
  return c_.cmdHistory->isChecked();
}

bool frmDial::NumberEnabled() const {
  return c_.txtNr->isEnabledTo(this);
}

void frmDial::SetNumberText(const std::string& text) {
  c_.txtNr->setText(QString::fromStdString(text));
}

}  // namespace orvane
