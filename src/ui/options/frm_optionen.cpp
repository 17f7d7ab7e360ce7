#include "ui/options/frm_optionen.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QGroupBox>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabWidget>

#include "ui/style/command_button.h"
#include "ui/style/palette.h"

namespace orvane {
namespace {

constexpr int kCornerPixels = 20;
constexpr QSize kDesignedSize(640, 560);
constexpr std::size_t kApply = 0;
constexpr std::size_t kCancel = 1;

// Moving the focus to the frame of the list keeps it from taking the arrow keys; they go back to
// it.
bool MovesInList(int key) {
  return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Home || key == Qt::Key_End;
}

}  // namespace

frmOptionen::frmOptionen(const OptionsSystem& system, ProgramState& state, CurrentCall& call,
                         WorkQueue& queue, OptionsOwner& owner, QWidget& parent)
    : QDialog(&parent, Qt::Dialog | Qt::FramelessWindowHint),
      system_(system),
      state_(state),
      call_(call),
      queue_(queue),
      owner_(owner),
      modem_({system.serial, system.loop, system.clock, system.prompts, queue}, *this),
      tapi_(system.tapi, system.prompts, state.settings, call, *this),
      c_(BuildOptionsControls(*this)),
      chrome_(system.newChrome(*this)) {
  setObjectName(QStringLiteral("frmOptionen"));
  setWindowTitle(c_.lblHead->text());
  setWindowModality(Qt::ApplicationModal);
  SetTestDialIdle(true);
  FitSize();
  ConnectControls();
}

// As designed, or larger where the font needs it. Sizes are known only when the style is applied.
void frmOptionen::FitSize() {
  for (QWidget* control : findChildren<QWidget*>()) control->ensurePolished();
  setFixedSize(layout()->minimumSize().expandedTo(kDesignedSize));
}

void frmOptionen::ConnectControls() {
  const auto onClick = [this](QPushButton* button, auto command) {
    connect(button, &QPushButton::clicked, this, [this, command] { Later(command); });
  };
  for (const std::size_t button : {kApply, kCancel}) {
    onClick(c_.cmdAktion[button], [this, button] { OnAction(button); });
  }
  for (std::size_t button = 0; button < c_.cmdConfigDlg.size(); ++button) {
    onClick(c_.cmdConfigDlg[button], [this, button] { OnConfigDialog(button); });
  }
  onClick(c_.cmdDial, [this] { OnDial(); });
  connect(c_.dialMethods, &QButtonGroup::idToggled, this, [this](int method, bool selected) {
    if (selected) OnDialMethod(method);
  });
  // A click on the selected method is one, too.
  connect(c_.dialMethods, &QButtonGroup::idClicked, this, &frmOptionen::OnDialMethod);
  connect(c_.txtTestNr, &QLineEdit::textChanged, this, [this] { OnTestNumberChanged(); });
  connect(c_.lstLineSel, &QListWidget::itemSelectionChanged, this, [this] {
    selectedByPress_ = true;
    Later([this] { OnLineSelected(); });
  });
  connect(c_.lstLineSel, &QListWidget::itemClicked, this, [this] {
    if (!selectedByPress_) Later([this] { OnLineSelected(); });
  });
  connect(c_.tabTab, &QTabWidget::currentChanged, this,
          [this] { c_.cmdAktion[kApply]->setFocus(); });
  for (QWidget* watched : {static_cast<QWidget*>(c_.panHead), static_cast<QWidget*>(c_.lblHead),
                           static_cast<QWidget*>(c_.tabConf), static_cast<QWidget*>(c_.lstLineSel),
                           c_.lstLineSel->viewport(), static_cast<QWidget*>(c_.txtTestNr)}) {
    watched->installEventFilter(this);
  }
}

void frmOptionen::Later(const std::function<void()>& work) {
  queue_.Submit([self = QPointer<frmOptionen>(this), work] {
    if (self && !self->ended_) work();
  });
}

void frmOptionen::Show() {
  // The line along the round corners continues the frame.
  QPalette colours = palette();
  colours.setColor(QPalette::Shadow, CurrentPalette().frame);
  setPalette(colours);
  chrome_->SetRoundedRegion(width(), height(), kCornerPixels);
  show();
  raise();
  activateWindow();
  c_.optDial[static_cast<std::size_t>(DialMethod())]->setFocus();
}

bool frmOptionen::eventFilter(QObject* watched, QEvent* event) {
  if (watched == c_.txtTestNr) return DialsByEnter(*event);
  if (watched == c_.tabConf) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move) PlaceCover();
    if (event->type() != QEvent::KeyPress) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    // What the list itself could not use comes by here too.
    if (!MovesInList(key->key()) || !c_.lstLineSel->isVisible() || c_.lstLineSel->hasFocus()) {
      return false;
    }
    c_.lstLineSel->setFocus();
    QKeyEvent again(key->type(), key->key(), key->modifiers(), key->text());
    return QCoreApplication::sendEvent(c_.lstLineSel, &again);
  }
  if (watched == c_.lstLineSel) {
    // The tabulator key makes the first line the current one without selecting it, and keys that
    // lead to the current line do nothing.
    const bool moves =
        event->type() == QEvent::KeyPress && MovesInList(static_cast<QKeyEvent*>(event)->key());
    if (moves && SelectedLine() < 0) c_.lstLineSel->selectionModel()->clearCurrentIndex();
    return false;
  }
  if (event->type() != QEvent::MouseButtonPress) return QDialog::eventFilter(watched, event);
  if (watched == c_.lstLineSel->viewport()) {
    selectedByPress_ = false;
    return false;
  }
  if (static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton) return false;
  chrome_->Drag([] {});
  return true;
}

// Whoever has typed a number means to call it, not to apply the options.
bool frmOptionen::DialsByEnter(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<const QKeyEvent&>(event);
  if (key.key() != Qt::Key_Return && key.key() != Qt::Key_Enter) return false;
  if (!key.isAutoRepeat()) c_.cmdDial->click();
  return true;
}

// However the dialog is closed, it ends in its turn and not in the middle of a procedure.
void frmOptionen::closeEvent(QCloseEvent* event) {
  event->ignore();
  reject();
}

void frmOptionen::reject() {
  Later([this] { OnAction(kCancel); });
}

void frmOptionen::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), CurrentPalette().frame);
  // At scales such as 125 % neither the pages nor what is below them fill the row between them.
  painter.fillRect(c_.tabTab->geometry().adjusted(0, 1, 0, 1), CurrentPalette().ground);
}

// What the dialog left open is closed together with the program.
void frmOptionen::Abandon() {
  ended_ = true;
  modem_.Abandon();
  hide();
}

void frmOptionen::OnAction(std::size_t button) {
  if (button == kApply && !SpeedDialStorable()) return;
  system_.prompts.SetBusyCursor(true);
  hide();
  const std::int32_t line = state_.settings.tapiLineId;
  CloseCurrentLine();
  if (button == kApply) {
    if (const auto failure = Apply()) {
      ComeBack(line, *failure);
      return;
    }
  } else {
    RestoreLine();
  }
  ended_ = true;
  modem_.Abandon();
  owner_.OptionsEnded();
  system_.prompts.SetBusyCursor(false);
}

}  // namespace orvane
