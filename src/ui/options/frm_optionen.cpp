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

frmOptionen::frmOptionen(const OptionsSystem& system, ProgramState& state, WorkQueue& queue,
                         OptionsOwner& owner, QWidget& parent)
    : QDialog(&parent, Qt::Dialog | Qt::FramelessWindowHint),
      system_(system),
      state_(state),
      queue_(queue),
      owner_(owner),
      testDial_(system.tapi, {system.serial, system.loop, system.clock, system.prompts, queue},
                system.locale, state.settings, *this),
      controls_(BuildOptionsControls(*this)),
      chrome_(system.newChrome(*this)) {
  setObjectName(QStringLiteral("frmOptionen"));
  setWindowTitle(controls_.title->text());
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
    onClick(controls_.actions[button], [this, button] { OnAction(button); });
  }
  for (std::size_t button = 0; button < controls_.lineButtons.size(); ++button) {
    onClick(controls_.lineButtons[button], [this, button] { OnConfigDialog(button); });
  }
  onClick(controls_.testDial, [this] { OnDial(); });
  connect(controls_.dialMethods, &QButtonGroup::idToggled, this, [this](int method, bool selected) {
    if (selected) OnDialMethod(method);
  });
  // A click on the selected method is one, too.
  connect(controls_.dialMethods, &QButtonGroup::idClicked, this, &frmOptionen::OnDialMethod);
  connect(controls_.testNumber, &QLineEdit::textChanged, this, [this] { OnTestNumberChanged(); });
  connect(controls_.lines, &QListWidget::itemSelectionChanged, this, [this] {
    selectedByPress_ = true;
    Later([this] { OnLineSelected(); });
  });
  connect(controls_.lines, &QListWidget::itemClicked, this, [this] {
    if (!selectedByPress_) Later([this] { OnLineSelected(); });
  });
  connect(controls_.pages, &QTabWidget::currentChanged, this,
          [this] { controls_.actions[kApply]->setFocus(); });
  for (QWidget* watched :
       {static_cast<QWidget*>(controls_.titleBar), static_cast<QWidget*>(controls_.title),
        static_cast<QWidget*>(controls_.connection), static_cast<QWidget*>(controls_.lines),
        controls_.lines->viewport(), static_cast<QWidget*>(controls_.testNumber)}) {
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
  controls_.methods[static_cast<std::size_t>(DialMethod())]->setFocus();
}

bool frmOptionen::eventFilter(QObject* watched, QEvent* event) {
  if (watched == controls_.testNumber) return DialsByEnter(*event);
  if (watched == controls_.connection) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move) PlaceCover();
    if (event->type() != QEvent::KeyPress) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    // What the list itself could not use comes by here too.
    if (!MovesInList(key->key()) || !controls_.lines->isVisible() || controls_.lines->hasFocus()) {
      return false;
    }
    controls_.lines->setFocus();
    QKeyEvent again(key->type(), key->key(), key->modifiers(), key->text());
    return QCoreApplication::sendEvent(controls_.lines, &again);
  }
  if (watched == controls_.lines) {
    // The tabulator key makes the first line the current one without selecting it, and keys that
    // lead to the current line do nothing.
    const bool moves =
        event->type() == QEvent::KeyPress && MovesInList(static_cast<QKeyEvent*>(event)->key());
    if (moves && SelectedLine() < 0) controls_.lines->selectionModel()->clearCurrentIndex();
    return false;
  }
  if (event->type() != QEvent::MouseButtonPress) return QDialog::eventFilter(watched, event);
  if (watched == controls_.lines->viewport()) {
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
  if (!key.isAutoRepeat()) controls_.testDial->click();
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
  painter.fillRect(controls_.pages->geometry().adjusted(0, 1, 0, 1), CurrentPalette().ground);
}

// What the dialog left open is closed together with the program.
void frmOptionen::Abandon() {
  ended_ = true;
  testDial_.Abandon();
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
  testDial_.Abandon();
  owner_.OptionsEnded();
  system_.prompts.SetBusyCursor(false);
}

}  // namespace orvane
