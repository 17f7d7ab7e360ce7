#include "ui/dial/frm_dial.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPainter>

#include "app/host_paths.h"
#include "ui/dial/widget_placement.h"
#include "ui/logic/window_geometry.h"
#include "ui/style/command_button.h"
#include "ui/style/elided_label.h"
#include "ui/style/glyph_icon.h"
#include "ui/style/palette.h"

namespace orvane {
namespace {

constexpr int kCornerPixels = 20;

}  // namespace

frmDial::frmDial(const DialSystem& system, ProgramState& state, WorkQueue& queue, TelList& journal)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint),
      system_(system),
      state_(state),
      queue_(queue),
      journal_(journal),
      settings_(system.ini, system.tapi, system.prompts, system.log, state, *this,
                [&journal] { journal.Renew(); }),
      logger_(journal, system.databases, system.locale, system.prompts, system.log, state, *this),
      session_(logger_, *this),
      modem_({system.serial, system.loop, system.clock, system.prompts, queue}, state.settings,
             session_, *this),
      tapi_(system.tapi, system.locale, system.prompts, state.settings, session_, *this),
      lineEvents_(system.tapi, system.clock, system.prompts, queue, *this, tapi_),
      redial_(system.newRegistry, system.background),
      dial_(system.prompts, system.log, state, session_, *this, redial_, modem_, tapi_),
      channel_(system.channel, system.loop, system.prompts, system.log, state, session_, queue,
               *this),
      controls_(BuildDialControls(*this)),
      chrome_(system.newChrome(*this)) {
  setObjectName(QStringLiteral("frmDial"));
  setWindowTitle(
      QString::fromUtf8(kDialWindowCaption.data(), qsizetype(kDialWindowCaption.size())));
  setWindowIcon(GlyphIcon(Glyph::kLogo, &Palette::dial));
  SetDialButtonIdle(true);
  ConnectCommands();
  ConnectHistory();
  WatchControls();
  ShowDestination();
}

frmDial::~frmDial() {
  if (IsLoaded()) channel_.UnhookWindow();
}

HostRegistry& frmDial::Registry() {
  return RegistryOf(state_.host);
}

// The form sees keys before its controls, and presses on its free areas move it.
void frmDial::WatchControls() {
  installEventFilter(this);
  for (QWidget* control : findChildren<QWidget*>()) control->installEventFilter(this);
  dragAreas_ = {controls_.titleBar,    controls_.destination, controls_.contact,
                controls_.progressLog, controls_.filters,     controls_.progressLog->viewport()};
  dragAreas_.insert(controls_.statusLabels.begin(), controls_.statusLabels.end());
  dragAreas_.insert(controls_.filterLabels.begin(), controls_.filterLabels.end());
}

bool frmDial::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress: {
      const QWidget* receiver = focusWidget() != nullptr ? focusWidget() : this;
      return watched == receiver && OnKeyDown(*static_cast<QKeyEvent*>(event));
    }
    case QEvent::KeyRelease:
      if (!static_cast<QKeyEvent*>(event)->isAutoRepeat()) ReleaseKeypad();
      return false;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
      const auto& press = *static_cast<QMouseEvent*>(event);
      if (watched == controls_.statusLabels[0] && titleClicks_.IsSecond(press)) {
        queue_.Submit([this] { SwitchTo(OtherView()); });
        return true;
      }
      return dragAreas_.contains(watched) && DragWindow(press.button());
    }
    default:
      return false;
  }
}

void frmDial::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::ActivationChange) return;
  if (isActiveWindow()) {
    controls_.numberField->setFocus();
  } else {
    ReleaseKeypad();
  }
}

void frmDial::closeEvent(QCloseEvent* event) {
  queue_.Submit([this] { Unload(); });
  event->setAccepted(stage_ != Stage::kLoaded);
}

void frmDial::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), CurrentPalette().frame);
}

void frmDial::ApplyWindowShape() {
  // The line along the round corners continues the frame.
  QPalette colours = palette();
  colours.setColor(QPalette::Shadow, CurrentPalette().frame);
  setPalette(colours);
  chrome_->SetRoundedRegion(width(), height(), kCornerPixels);
}

// True when the button moves the window: the left one only.
bool frmDial::DragWindow(Qt::MouseButton button) {
  if (button != Qt::LeftButton) return false;
  chrome_->Drag([this] { KeepCompactViewOnScreen(); });
  return true;
}

void frmDial::KeepCompactViewOnScreen() {
  WidgetPlacement window(*this);
  if (window.Size().height >= kCompactHeightLimitTwips) return;
  window.MoveTo(KeepOnScreen(window.Position(), window.Size(), ScreenOf(window)));
}

}  // namespace orvane
