// The page "Kommunikationseinstellungen": dial method, lines and the test dial.
#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <array>
#include <exception>
#include <utility>

#include "app/error_report.h"
#include "app/line_opening.h"
#include "dialing/number_preparation.h"
#include "platform/errors.h"
#include "platform/tapi_control.h"
#include "platform/text/text_tools.h"
#include "ui/logic/driver_info.h"
#include "ui/options/frm_optionen.h"
#include "ui/style/command_button.h"
#include "ui/style/glyph_icon.h"
#include "ui/style/style_sheet.h"

namespace orvane {
namespace {

constexpr int kPortPage = 0;
constexpr int kLinePage = 1;

struct MethodLook {
  int page;
  const char* progress;
  const char* hint;
};
constexpr std::array<MethodLook, 3> kMethodLooks = {{
    {kPortPage, "<CTI deaktiviert>",
     "Wählen Sie links, worüber das Programm Rufnummern wählen soll."},
    {kPortPage, "<Status für Comm-Port - OK>", ""},
    {kLinePage, "<Status für TAPI - OK>",
     "Um hier ein TAPI-Gerät auszusuchen, wählen Sie links erst „Serielle Schnittstelle“ und dann "
     "noch einmal „TAPI-Gerät“."},
}};

void AppendLine(QPlainTextEdit& box, const QString& text) {
  box.appendPlainText(text);
  box.moveCursor(QTextCursor::End);
}

}  // namespace

int frmOptionen::DialMethod() const {
  return std::max(controls_.dialMethods->checkedId(), 0);
}

int frmOptionen::SelectedLine() const {
  const auto selected = controls_.lines->selectedItems();
  return selected.isEmpty() ? kNoTapiLine : controls_.lines->row(selected.front());
}

// The cover goes with the serial port only: whoever comes from "deactivated" straight to the lines
// still sees it.
void frmOptionen::OnDialMethod(int method) {
  const MethodLook& look = kMethodLooks[static_cast<std::size_t>(method)];
  if (method != kDialMethodTapi) controls_.deactivated->setVisible(method == kDialMethodNone);
  const bool covered = !controls_.deactivated->isHidden();
  controls_.deactivatedHint->setText(QString::fromUtf8(look.hint));
  controls_.connection->setCurrentIndex(look.page);
  // What cannot be seen must not take the focus.
  controls_.connection->setEnabled(!covered);
  if (covered) PlaceCover();
  controls_.progress->setPlainText(QString::fromUtf8(look.progress));
  controls_.callMonitor->setEnabled(method == kDialMethodTapi);
  OnTestNumberChanged();
}

void frmOptionen::PlaceCover() {
  const QRect configuration(controls_.connectionCaption->geometry().topLeft(),
                            controls_.connection->geometry().bottomRight());
  controls_.deactivated->setGeometry(configuration);
  controls_.deactivated->raise();
}

void frmOptionen::OnTestNumberChanged() {
  QLineEdit& field = *controls_.testNumber;
  const auto filtered = [](const QString& text) {
    return QString::fromStdString(FilterChars(text.toStdString(), kNumberFieldCharacters, true));
  };
  if (const QString kept = filtered(field.text()); kept != field.text()) {
    const auto cursor = filtered(field.text().left(field.cursorPosition())).size();
    const QSignalBlocker quiet(field);
    field.setText(kept);
    field.setCursorPosition(static_cast<int>(cursor));
  }
  UpdateTestDial();
}

// Whatever is changed meanwhile, a test call can be ended.
void frmOptionen::UpdateTestDial() {
  const bool canBegin =
      DialMethod() != kDialMethodNone && HoldsNumber(controls_.testNumber->text().toStdString());
  controls_.testDial->setEnabled(!testDialBlocked_ && (testDial_.On() || canBegin));
}

void frmOptionen::OnLineSelected() {
  const std::int32_t selected = SelectedLine();
  controls_.connection->setFocus();
  testDial_.End();
  CloseCurrentLine();
  std::int32_t& line = state_.settings.tapiLineId;
  line = selected;
  if (line < 0) return;
  try {
    line = OpenTapiLine(system_.tapi, line);
  } catch (const TapiError& error) {
    AppendProgress(error.Description());
  }
}

void frmOptionen::OnConfigDialog(std::size_t button) {
  constexpr std::size_t kRefresh = 3;
  const std::string caption =
      controls_.lineButtons[button]->text().remove(QLatin1Char('&')).toStdString();
  if (button != kRefresh && !LineChosen(caption)) return;
  try {
    switch (button) {
      case 0:
        ShowLineDialog(LineDialog::kDialling);
        break;
      case 1:
        ShowLineDialog(LineDialog::kDevice);
        break;
      case 2:
        ShowDriverInformation();
        break;
      default:
        RefreshLines();
    }
  } catch (const std::exception& error) {
    ShowError(system_.prompts, ErrorStateOf(error), caption);
  }
}

// Without one the user is told, under the title of what he wanted.
bool frmOptionen::LineChosen(const std::string& title) {
  if (state_.settings.tapiLineId >= 0) return true;
  system_.prompts.ShowMessage(PromptIcon::kExclamation,
                              "Bitte wählen Sie zuerst ein TAPI-Gerät aus.", title);
  return false;
}

void frmOptionen::ShowLineDialog(LineDialog dialog) {
  try {
    system_.tapi.ShowDialog(state_.settings.tapiLineId, dialog, winId());
  } catch (const TapiError& error) {
    if (error.Number() != kLineErrorOperationUnavailable) throw;
    const bool dialling = dialog == LineDialog::kDialling;
    system_.prompts.ShowMessage(
        PromptIcon::kNone,
        dialling ? "Für dieses TAPI-Gerät gibt es keine Wählparameter einzustellen."
                 : "Der Treiber dieses TAPI-Geräts hat keine Einstellungen.",
        dialling ? "Wählparameter" : "Treibereinstellung");
  }
}

// The second block takes the place of the first: only the driver remains to be seen.
void frmOptionen::ShowDriverInformation() {
  const std::int32_t line = state_.settings.tapiLineId;
  const std::string name = system_.tapi.LineName(line);
  const LineInfo info = system_.tapi.Info(line);
  SetTapiInfo(CapabilityLines(name, info));
  SetTapiInfo(DriverLines(name, info));
}

void frmOptionen::RefreshLines() {
  system_.tapi.ShutDown();
  // Calls are over without another word.
  testDial_.LineGone();
  LoadTapiList();
  SetTapiInfo({"TAPI-Geräteliste wurde erneut ausgelesen."});
}

void frmOptionen::SetTapiInfo(const std::vector<std::string>& lines) {
  controls_.lineInfo->clear();
  for (const std::string& line : lines)
    AppendLine(*controls_.lineInfo, QString::fromStdString(line));
}

std::string frmOptionen::TestDialString() const {
  const QLineEdit* prefix = controls_.testTargets[kTestInternal]->isChecked()
                                ? controls_.outsideLineInt
                                : controls_.outsideLineExt;
  return Trim(prefix->text().toStdString()) + controls_.testNumber->text().toStdString();
}

void frmOptionen::OnDial() {
  const std::string number = controls_.testNumber->text().toStdString();
  const bool noNumber = Trim(number).empty();
  if (noNumber && !testDial_.On()) {
    system_.prompts.Beep();
    AppendProgress("<<<<<<< ungültige Testrufnummer! >>>>>>>");
    AppendProgress("Bitte geben Sie eine gültige Telefonnummer zum testen an.");
    AppendProgress("Eine Nebenstelle in Ihrem Haus wäre hierzu gut geeignet.");
    return;
  }
  const bool internal = controls_.testTargets[kTestInternal]->isChecked();
  try {
    // Hanging up needs no number, and must not empty the stored one.
    if (!noNumber) SaveTestNumber(state_.host, number, internal ? kTestInternal : kTestExternal);
  } catch (const RegistryError&) {
    // The test itself does not depend on it.
  }
  const auto way = DialMethod() == kDialMethodModem ? Session::Way::kModem : Session::Way::kLine;
  if (!testDial_.On() && way == Session::Way::kLine && !LineChosen("Testwahl")) return;
  testDial_.Click(way, TestDialString());
}

void frmOptionen::SetTestDialIdle(bool idle) {
  CommandButton& button = *controls_.testDial;
  button.setChecked(!idle);
  button.setText(idle ? QStringLiteral("&Wählen...") : QStringLiteral("&Auflegen"));
  button.setToolTip(idle ? QStringLiteral("Die Testrufnummer wählen")
                         : QStringLiteral("Das Testgespräch beenden"));
  button.setIcon(idle ? DialPicture() : HangUpPicture());
  SetRole(button, idle ? role::kDial : role::kHangUp);
  UpdateTestDial();
}

void frmOptionen::SetTestDialEnabled(bool enabled) {
  // A button that is disabled loses the focus to whatever comes next.
  if (!enabled) {
    testDialHadFocus_ = controls_.testDial->hasFocus();
    if (testDialHadFocus_) controls_.connection->setFocus();
  }
  testDialBlocked_ = !enabled;
  UpdateTestDial();
  // Enter would mean "Übernehmen" elsewhere, in the middle of the test call.
  if (enabled && std::exchange(testDialHadFocus_, false)) controls_.testDial->setFocus();
}

void frmOptionen::EnableAndFocusTestDial() {
  testDialBlocked_ = false;
  UpdateTestDial();
  // On a page that is not shown it would take the next key unseen.
  if (controls_.testDial->isVisible()) controls_.testDial->setFocus();
}

// A port beyond the choices stays as it is until one of them is selected.
int frmOptionen::SelectedComPort() const {
  for (int i = 0; i < kComPortChoices; ++i) {
    if (controls_.ports[static_cast<std::size_t>(i)]->isChecked()) return i + 1;
  }
  return state_.settings.comPortNumber;
}

void frmOptionen::AppendProgress(const std::string& text) {
  AppendLine(*controls_.progress, QString::fromStdString(text));
}

}  // namespace orvane
