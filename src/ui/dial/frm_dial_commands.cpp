// What the buttons, the number field and the speed-dial list do.
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

#include "app/attempt.h"
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
  onClick(controls_.clearButton, [](frmDial& f) { f.OnClear(); });
  onClick(controls_.pasteButton, [](frmDial& f) { f.OnGetClipboard(); });
  onClick(controls_.redialButton, [](frmDial& f) { f.OnRedial(); });
  onClick(controls_.historyButton, [](frmDial& f) { f.ToggleHistory(); });
  onClick(controls_.optionsButton, [](frmDial& f) { f.OnOptions(); });
  onClick(controls_.viewSwitch, [](frmDial& f) { f.SwitchTo(f.OtherView()); });
  onClick(controls_.closeButton, [](frmDial& f) { f.Unload(); });
  for (CommandButton* button : controls_.dialButtons) {
    connect(button, &QPushButton::clicked, this, [this] {
      queue_.Submit([this, clicked = system_.clock.Now()] { dial_.Click(clicked); });
    });
  }
  for (std::size_t key = 0; key < controls_.keys.size(); ++key) {
    onClick(controls_.keys[key], [key](frmDial& f) { f.OnKeypad(key); });
  }
  connect(controls_.numberField, &QLineEdit::textChanged, this, [this] { OnNumberChanged(); });
  connect(controls_.speedDial, &QComboBox::activated, this,
          [this](int index) { queue_.Submit([this, index] { OnSpeedDial(index); }); });
}

void frmDial::OnNumberChanged() {
  const QString text = controls_.numberField->text();
  const auto filtered = [](const QString& part) {
    return ToQString(FilterChars(part.toStdString(), kNumberFieldCharacters, true));
  };
  if (const QString kept = filtered(text); kept != text) {
    const auto cursor = filtered(text.left(controls_.numberField->cursorPosition())).size();
    const QSignalBlocker quiet(controls_.numberField);
    controls_.numberField->setText(kept);
    controls_.numberField->setCursorPosition(static_cast<int>(cursor));
  }
  FitNumber();
  // An entry that was picked names another number from now on.
  controls_.speedDial->setCurrentIndex(-1);
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
  QLineEdit& field = *controls_.numberField;
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
    controls_.destination->setText(ToQString(kIdleHeadline));
    controls_.statusLabels[1]->setText(ToQString(kIdleHint));
    return;
  }
  const std::string dialled = FilterChars(PrepareDialNumber(number, state_.settings.countryPrefix),
                                          kDialledCharacters, true);
  // The table would take the first digits of an extension or a local number for a country code.
  DatabaseConnection* const table = dialled.starts_with("0") ? areaCodes_.get() : nullptr;
  controls_.destination->setText(
      ToQString(classifier_.ClassifyNumber(dialled, dialled.starts_with("00"), table)));
  controls_.statusLabels[1]->setText(QString());
}

void frmDial::OnClear() {
  SetNumberText("");
  controls_.numberField->setFocus();
}

void frmDial::OnGetClipboard() {
  if (!NumberEnabled()) return;
  SetNumberText(ClipboardText());
  controls_.numberField->setFocus();
}

void frmDial::OnRedial() {
  if (!NumberEnabled()) return;
  Attempt([this] { SetNumberText(redial_.Text()); });
  controls_.numberField->setFocus();
}

void frmDial::OnKeypad(std::size_t key) {
  if (!NumberEnabled()) return;
  SetNumberText(Trim(NumberText() + controls_.keys[key]->text().toStdString()));
  controls_.display->setFocus();
}

void frmDial::OnSpeedDial(int index) {
  if (!speedDialSelectable_) return;
  const std::string number =
      SpeedDialNumber(controls_.speedDial->property("tag").toString().toStdString(), index);
  SetNumberText(number);
  controls_.speedDial->setCurrentIndex(index);
  ShowSpeedDialKind(index);
  if (ExternVisible()) SetExternTicked(MarkedExternal(number));
}

void frmDial::RefuseDuringSession(const std::string& text) {
  system_.prompts.Beep();
  system_.prompts.ShowMessage(PromptIcon::kExclamation, text, kRefusalTitle);
}

}  // namespace orvane
