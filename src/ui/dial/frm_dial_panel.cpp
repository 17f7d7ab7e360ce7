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
  controls_.externalBox->setVisible(visible);
}

void frmDial::ResetSpeedDial() {
  speedDialSelectable_ = false;
  controls_.speedDial->clear();
  controls_.speedDial->setCurrentIndex(-1);
  controls_.speedDial->setProperty(kTagProperty, QString());
  ShowSpeedDialKind(-1);
}

void frmDial::AddSpeedDialEntry(const std::string& text) {
  const SpeedDialEntry entry = ParseSpeedDialEntry(text);
  const QString name = QString::fromStdString(entry.name);
  controls_.speedDial->addItem(entry.kind ? KindIcon(*entry.kind) : QIcon(), name,
                               entry.kind ? QVariant(static_cast<int>(*entry.kind)) : QVariant());
  controls_.speedDial->setItemData(controls_.speedDial->count() - 1, name, Qt::ToolTipRole);
  controls_.speedDial->setCurrentIndex(-1);
  SetSpeedDialSelectable(speedDialSelectable_);
}

void frmDial::SetSpeedDialNumbers(const std::string& numbers) {
  controls_.speedDial->setProperty(kTagProperty, QString::fromStdString(numbers));
}

void frmDial::SetSpeedDialSelectable(bool selectable) {
  speedDialSelectable_ = selectable;
  auto* model = static_cast<QStandardItemModel*>(controls_.speedDial->model());
  for (int row = 0; row < model->rowCount(); ++row) model->item(row)->setEnabled(selectable);
}

void frmDial::SetSpeedDialToolTip(const std::string& text) {
  const QString tip = QString::fromStdString(text);
  controls_.speedDial->setToolTip(tip);
  controls_.internalMark->setToolTip(tip);
  controls_.externalMark->setToolTip(tip);
}

void frmDial::ShowSpeedDialKind(int index) {
  const QVariant kind = controls_.speedDial->itemData(index);
  const auto is = [&](SpeedDialKind wanted) {
    return kind.isValid() && kind.toInt() == static_cast<int>(wanted);
  };
  controls_.internalMark->setVisible(is(SpeedDialKind::kInternal));
  controls_.externalMark->setVisible(is(SpeedDialKind::kExternal));
}

void frmDial::SetDialMethodStatus(const std::string& headline, const std::string& detail) {
  const char* statusRole = headline == kReadyHeadline ? role::kReady : role::kProblem;
  controls_.statusLabels[2]->setText(QString::fromStdString(headline));
  controls_.statusLabels[3]->setText(QString::fromStdString(detail));
  SetRole(*controls_.statusLabels[2], statusRole);
  SetRole(*controls_.statusLabels[3], statusRole);
}

void frmDial::AddStatus(const std::string& text) {
  controls_.bottomLine->show();
  controls_.version->hide();
  QListWidget& log = *controls_.progressLog;
  auto* line = new QListWidgetItem(QString::fromStdString(text), &log);
  line->setToolTip(line->text());
  log.setCurrentRow(-1);
  log.scrollToBottom();
}

bool frmDial::ExternTicked() const {
  return controls_.externalBox->isChecked();
}

void frmDial::SetContactLabel(const std::string& text) {
  controls_.contact->setText(QString::fromStdString(text));
}

std::string frmDial::NumberText() const {
  return controls_.numberField->text().toStdString();
}

void frmDial::ClearStatus() {
  controls_.progressLog->clear();
}

void frmDial::SetDialButtonIdle(bool idle) {
  for (CommandButton* button : controls_.dialButtons) {
    button->setIcon(idle ? DialPicture() : HangUpPicture());
    button->setText(idle ? QStringLiteral("&Wählen") : QStringLiteral("&Auflegen"));
    button->setAccessibleName(idle ? QStringLiteral("Wählen") : QStringLiteral("Auflegen"));
    button->setToolTip(idle ? QStringLiteral("Rufnummer wählen")
                            : QStringLiteral("Gespräch beenden"));
    SetRole(*button, idle ? role::kDial : role::kHangUp);
  }
  controls_.dialButtons[0]->setChecked(!idle);
}

bool frmDial::WindowEnabled() const {
  return isEnabled();
}

void frmDial::SetDialButtonsEnabled(bool enabled) {
  // A button that is disabled loses the focus; left to itself it could go to the close button.
  const bool focused = controls_.dialButtons[0]->hasFocus() || controls_.dialButtons[1]->hasFocus();
  if (!enabled && focused) controls_.numberField->setFocus();
  for (CommandButton* button : controls_.dialButtons) button->setEnabled(enabled);
}

void frmDial::FocusDialButton() {
  const bool compact = height() * kTwipsPerPixel <= kCompactFocusHeightTwips;
  controls_.dialButtons[compact ? 1 : 0]->setFocus();
}

bool frmDial::ExternVisible() const {
  // The compact view has no room for the box, but what it says counts there too.
  return !controls_.externalBox->isHidden();
}

void frmDial::SetExternTicked(bool ticked) {
  controls_.externalBox->setChecked(ticked);
}

bool frmDial::DevDialTicked() const {
  return controls_.developerBox->isChecked();
}

bool frmDial::HistoryShown() const {
  return controls_.historyButton->isChecked();
}

bool frmDial::NumberEnabled() const {
  return controls_.numberField->isEnabledTo(this);
}

void frmDial::SetNumberText(const std::string& text) {
  controls_.numberField->setText(QString::fromStdString(text));
}

}  // namespace orvane
