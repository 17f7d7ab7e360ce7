// How the dialog is filled, and how what the user chose is applied or dropped.
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <exception>
#include <optional>

#include "app/attempt.h"
#include "app/error_report.h"
#include "app/line_opening.h"
#include "platform/errors.h"
#include "ui/options/frm_optionen.h"

namespace orvane {
namespace {

using FieldRows = std::array<SpeedDialRow, kSpeedDialRows>;

void ShowRows(const FieldRows& rows, const SpeedDialFields& fields) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    fields.names[i]->setText(QString::fromStdString(rows[i].name));
    fields.numbers[i]->setText(QString::fromStdString(rows[i].number));
  }
}

// Umlauts may come from elsewhere as two characters, of which the file could keep only the letter.
std::string TextOf(const QLineEdit& field) {
  return field.text().normalized(QString::NormalizationForm_C).toStdString();
}

FieldRows RowsOf(const SpeedDialFields& fields) {
  FieldRows rows;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i] = {TextOf(*fields.names[i]), TextOf(*fields.numbers[i])};
  }
  return rows;
}

}  // namespace

// A step that fails is reported at the end, so that the dialog is complete but for that step.
void frmOptionen::Load() {
  std::optional<ErrorState> failure;
  const auto step = [&failure](const auto& work) {
    const auto failed = Attempt(work);
    if (!failure) failure = failed;
  };
  lineBefore_ = state_.settings.tapiLineId;
  userPath_ = state_.host.userPath;
  step([this] { ShowChoices(); });
  step([this] { ShowSpeedDial(); });
  const auto method = std::min(state_.settings.dialMethod, kDialMethodTapi);
  controls_.methods[method]->setChecked(true);
  LoadTapiList();
  CheckComPorts();
  controls_.progress->setPlainText(QStringLiteral("<Bereit>"));
  if (failure) ShowError(system_.prompts, *failure, "Optionen - Initialisierung #");
}

void frmOptionen::ShowChoices() {
  const OptionChoices choices = CurrentChoices(state_, system_.prompts);
  callMonitorBefore_ = choices.callMonitor;
  controls_.callMonitor->setChecked(choices.callMonitor);
  controls_.testNumber->setText(QString::fromStdString(choices.testNumber));
  controls_.testTargets[static_cast<std::size_t>(choices.testTarget)]->setChecked(true);
  controls_.outsideLineExt->setText(QString::fromStdString(choices.outsideLineExt));
  controls_.outsideLineInt->setText(QString::fromStdString(choices.outsideLineInt));
  if (choices.comPort >= 1 && choices.comPort <= kComPortChoices) {
    controls_.ports[static_cast<std::size_t>(choices.comPort - 1)]->setChecked(true);
  }
}

void frmOptionen::ShowSpeedDial() {
  controls_.speedDialPage->setEnabled(false);
  const SpeedDialMemory memory = ReadSpeedDialFile(userPath_);
  ShowRows(memory.internalRows, controls_.internalRows);
  ShowRows(memory.externalRows, controls_.externalRows);
  controls_.speedDialPage->setEnabled(true);
  speedDialKnown_ = true;
}

void frmOptionen::LoadTapiList() {
  try {
    TapiControl& tapi = system_.tapi;
    const auto* const known = controls_.lines->item(state_.settings.tapiLineId);
    const QString nameBefore = known == nullptr ? QString() : known->text();
    if (tapi.NeedsInitialise()) tapi.Initialise();
    const QSignalBlocker selectedByProgram(controls_.lines);
    controls_.lines->clear();
    const int count = tapi.LineCount();
    for (int line = 0; line < count; ++line) {
      const QString name = QString::fromStdString(tapi.LineName(line));
      controls_.lines->addItem(name);
      controls_.lines->item(line)->setToolTip(name);
      // It keeps its place for the sake of the others' numbers.
      controls_.lines->item(line)->setHidden(name.isEmpty());
    }
    FollowCurrentLine(nameBefore);
    const std::int32_t current = state_.settings.tapiLineId;
    if (current < 0) return;
    if (current < count && !controls_.lines->item(current)->isHidden()) {
      controls_.lines->setCurrentRow(current);
      return;
    }
    controls_.lines->clearSelection();
    system_.prompts.ShowMessage(PromptIcon::kExclamation,
                                "Der TAPI-Treiber wurde entfernt oder umbenannt.",
                                "TAPI-Treiber nicht mehr gültig!");
  } catch (const std::exception& error) {
    ShowError(system_.prompts, ErrorStateOf(error), "Laden der TAPI-Liste");
  }
}

// Lines that are counted anew may have other numbers; without a line of that name the number
// counts.
void frmOptionen::FollowCurrentLine(const QString& name) {
  std::int32_t& line = state_.settings.tapiLineId;
  const auto* const there = controls_.lines->item(line);
  if (name.isEmpty() || (there != nullptr && there->text() == name)) return;
  const auto found = controls_.lines->findItems(name, Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (!found.isEmpty()) line = controls_.lines->row(found.front());
}

void frmOptionen::CheckComPorts() {
  try {
    for (const int port : ChoosableComPorts(system_.serialPorts())) {
      controls_.ports[static_cast<std::size_t>(port - 1)]->setEnabled(true);
    }
  } catch (const std::exception& error) {
    ShowError(system_.prompts, ErrorStateOf(error), "Port-Überprüfung #");
  }
}

OptionChoices frmOptionen::Choices() const {
  OptionChoices choices;
  choices.callMonitor = controls_.callMonitor->isChecked();
  choices.testNumber = controls_.testNumber->text().toStdString();
  choices.testTarget =
      controls_.testTargets[kTestExternal]->isChecked() ? kTestExternal : kTestInternal;
  choices.dialMethod = static_cast<std::uint8_t>(DialMethod());
  choices.outsideLineInt = controls_.outsideLineInt->text().toStdString();
  choices.outsideLineExt = controls_.outsideLineExt->text().toStdString();
  choices.comPort = SelectedComPort();
  if (const int line = SelectedLine(); line >= 0) {
    choices.lineName = controls_.lines->item(line)->text().toStdString();
  }
  return choices;
}

bool frmOptionen::SpeedDialStorable() {
  if (!speedDialKnown_) return true;
  for (const SpeedDialFields* block : {&controls_.internalRows, &controls_.externalRows}) {
    for (const auto* column : {&block->numbers, &block->names}) {
      for (QLineEdit* field : *column) {
        const std::string character = UnstorableCharacter(TextOf(*field));
        if (character.empty()) continue;
        controls_.pages->setCurrentWidget(controls_.speedDialPage);
        field->setFocus();
        system_.prompts.ShowMessage(
            PromptIcon::kExclamation,
            field->accessibleName().toStdString() + ": Das Zeichen „" + character +
                "“ kann nicht gespeichert werden.\r\rBitte schreiben Sie den Eintrag ohne dieses "
                "Zeichen. Bisher wurde nichts gespeichert.",
            "Kurzwahlspeicher");
        return false;
      }
    }
  }
  return true;
}

std::optional<ErrorState> frmOptionen::Apply() {
  ApplyContext context;
  context.userPath = userPath_;
  if (speedDialKnown_)
    context.speedDial = {RowsOf(controls_.internalRows), RowsOf(controls_.externalRows)};
  context.callMonitorBefore = callMonitorBefore_;
  context.reloadSettings = [this] {
    owner_.ReloadAppliedSettings();
    // Even if the last step fails, cancelling leads back to here and not to before.
    lineBefore_ = state_.settings.tapiLineId;
  };
  return Attempt([&] { ApplyOptions(system_.channel, state_, Choices(), context); });
}

// The dialog goes on as it was, for another try.
void frmOptionen::ComeBack(std::int32_t line, const ErrorState& failure) {
  if (line >= 0 && line == state_.settings.tapiLineId) {
    try {
      state_.settings.tapiLineId = OpenTapiLine(system_.tapi, line);
    } catch (const TapiError& error) {
      AppendProgress(error.Description());
    }
  }
  show();
  ShowError(system_.prompts, failure, "Optionen übernehmen");
}

// The lines may have been counted anew since the dialog opened, so the configured one is looked for
// by its name.
void frmOptionen::RestoreLine() {
  const bool hadLine = state_.settings.dialMethod == kDialMethodTapi && lineBefore_ >= 0;
  state_.settings.tapiLineId = kNoTapiLine;
  if (hadLine) owner_.ReopenConfiguredLine();
}

void frmOptionen::CloseCurrentLine() {
  testDial_.LineGone();
  if (state_.settings.tapiLineId < 0) return;
  // A line that is gone is as good as closed.
  Attempt([this] { system_.tapi.CloseLine(state_.settings.tapiLineId); });
}

}  // namespace orvane
