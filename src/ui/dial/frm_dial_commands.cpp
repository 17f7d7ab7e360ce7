// What the buttons, the number field and the speed-dial list do.
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

#include "app/attempt.h"
#include "app/host_settings.h"
#include "dialing/number_preparation.h"
#include "platform/text/text_tools.h"
#include "ui/dial/frm_dial.h"
#include "ui/logic/speed_dial_selection.h"
#include "ui/style/command_button.h"
#include "ui/style/drop_down.h"
#include "ui/style/elided_label.h"
#include "ui/style/style_sheet.h"

namespace orvane {
namespace {

constexpr char kMessageTitle[] = "Brisko";
constexpr char kRefusalTitle[] = "Ausführung nicht möglich!";
// Frame, padding and caret of the number field.
constexpr int kNumberPaddingPixels = 18;
// What of a prepared number reaches the line.
constexpr std::string_view kDialledCharacters = "0123456789*#";
constexpr std::string_view kIdleHeadline = "Bereit...";
constexpr std::string_view kIdleHint = "Bitte wählen Sie...";

QString ToQString(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
}

std::string ClipboardText() {
  return QGuiApplication::clipboard()->text().toStdString();
}

}  // namespace

void frmDial::ConnectCommands() {
  const auto onClick = [this](QPushButton* button, auto command) {
    connect(button, &QPushButton::clicked, this,
            [this, command] { queue_.Submit([this, command] { command(*this); }); });
  };
  onClick(c_.cmdClear, [](frmDial& f) { f.OnClear(); });
  onClick(c_.cmdGetClpbrd, [](frmDial& f) { f.OnGetClipboard(); });
  onClick(c_.cmdWdh, [](frmDial& f) { f.OnRedial(); });
  onClick(c_.cmdHistory, [](frmDial& f) { f.ToggleHistory(); });
  onClick(c_.cmdOptionen, [](frmDial& f) { f.OnOptions(); });
  onClick(c_.hovSizer, [](frmDial& f) { f.SwitchTo(f.OtherView()); });
  onClick(c_.hovClose, [](frmDial& f) { f.Unload(); });
  for (CommandButton* button : c_.cmdDial) onClick(button, [](frmDial& f) { f.OnDial(); });
  for (std::size_t key = 0; key < c_.cmdNr.size(); ++key) {
    onClick(c_.cmdNr[key], [key](frmDial& f) { f.OnKeypad(key); });
  }
  connect(c_.txtNr, &QLineEdit::textChanged, this, [this] { OnNumberChanged(); });
  connect(c_.cboNr, &QComboBox::activated, this,
          [this](int index) { queue_.Submit([this, index] { OnSpeedDial(index); }); });
}

void frmDial::OnNumberChanged() {
  const QString text = c_.txtNr->text();
  const auto filtered = [](const QString& part) {
    return ToQString(FilterChars(part.toStdString(), kNumberFieldCharacters, true));
  };
  if (const QString kept = filtered(text); kept != text) {
    const auto cursor = filtered(text.left(c_.txtNr->cursorPosition())).size();
    const QSignalBlocker quiet(c_.txtNr);
    c_.txtNr->setText(kept);
    c_.txtNr->setCursorPosition(static_cast<int>(cursor));
  }
  FitNumber();
  // An entry that was picked names another number from now on.
  c_.cboNr->setCurrentIndex(-1);
  ShowSpeedDialKind(-1);
  // Events come in while the table is being read, and what they bring has to wait for the answer: a
  // host command may close the window and with it the table.
  if (queue_.Busy()) {
    ShowDestination();
  } else {
    queue_.Submit([this] { ShowDestination(); });
  }
}

// A number that does not fit in large digits is shown in smaller ones, whole if possible.
void frmDial::FitNumber() {
  QLineEdit& field = *c_.txtNr;
  const QMargins margins = field.textMargins();
  const int room = field.width() - margins.left() - margins.right() - kNumberPaddingPixels;
  for (const char* size : {role::kNumber, role::kMediumNumber, role::kLongNumber}) {
    SetRole(field, FullViewShown() ? size : role::kCompactNumber);
    if (field.fontMetrics().horizontalAdvance(field.text()) <= room) break;
  }
}

void frmDial::ShowDestination() {
  const std::string number = NumberText();
  if (!HoldsNumber(number)) {
    c_.lblHead->setText(ToQString(kIdleHeadline));
    c_.lblBase[1]->setText(ToQString(kIdleHint));
    return;
  }
  const std::string dialled = FilterChars(PrepareDialNumber(number, state_.settings.countryPrefix),
                                          kDialledCharacters, true);
  // The table would take the first digits of an extension or a local number for a country code.
  DatabaseConnection* const table = dialled.starts_with("0") ? areaCodes_.get() : nullptr;
  c_.lblHead->setText(
      ToQString(classifier_.ClassifyNumber(dialled, dialled.starts_with("00"), table)));
  c_.lblBase[1]->setText(QString());
}

void frmDial::OnDial() {
  dial_.Click();
}

void frmDial::OnClear() {
  SetNumberText("");
  c_.txtNr->setFocus();
}

void frmDial::OnGetClipboard() {
  if (!NumberEnabled()) return;
  SetNumberText(ClipboardText());
  c_.txtNr->setFocus();
}

void frmDial::OnRedial() {
  if (!NumberEnabled()) return;
  Attempt([this] { SetNumberText(Stored(Registry(), setting::kRedial).value_or("")); });
  c_.txtNr->setFocus();
}

void frmDial::OnKeypad(std::size_t key) {
  if (!NumberEnabled()) return;
  SetNumberText(Trim(NumberText() + c_.cmdNr[key]->text().toStdString()));
  c_.tabDisplay->setFocus();
}

void frmDial::OnSpeedDial(int index) {
  if (!speedDialSelectable_) return;
  const std::string number =
      SpeedDialNumber(c_.cboNr->property("tag").toString().toStdString(), index);
  SetNumberText(number);
  c_.cboNr->setCurrentIndex(index);
  ShowSpeedDialKind(index);
  if (ExternVisible()) SetExternTicked(MarkedExternal(number));
}

void frmDial::RefuseDuringSession(const std::string& text) {
  system_.prompts.Beep();
  system_.prompts.ShowMessage(PromptIcon::kExclamation, text, kRefusalTitle);
}

}  // namespace orvane
