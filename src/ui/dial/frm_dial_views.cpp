// The switch between the full view and the compact one at the top edge of the screen.
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <algorithm>
#include <initializer_list>

#include "ui/dial/dial_views.h"
#include "ui/dial/frm_dial.h"
#include "ui/dial/widget_placement.h"
#include "ui/logic/view_toggle.h"
#include "ui/style/command_button.h"
#include "ui/style/control_building.h"
#include "ui/style/glyph_icon.h"

namespace orvane {

// What the switch does to the dial window.
class frmDial::Views : public TwoViews {
 public:
  explicit Views(frmDial& form) : form_(form) {}

  void ShowListControls(bool shown) override {
    form_.controls_.callTabs->setVisible(shown);
    form_.controls_.filters->setVisible(shown);
  }
  void ShowCommandButtons(bool shown) override {
    const DialControls& c = form_.controls_;
    for (QWidget* command : std::initializer_list<QWidget*>{c.optionsButton, c.historyButton,
                                                            c.redialButton, c.pasteButton}) {
      command->setVisible(shown);
    }
  }
  void ArrangePanel(DialView view) override {
    if (view == DialView::kFull) {
      form_.ArrangeFull();
    } else {
      form_.ArrangeCompact();
    }
  }
  void ApplyWindowShape() override { form_.ApplyWindowShape(); }
  void SetTopmost(bool topmost) override {
    form_.chrome_->SetTopmost(topmost ? kTopmost : kNotTopmost, true);
  }

 private:
  frmDial& form_;
};

bool frmDial::FullViewShown() const {
  return controls_.optionsButton->isVisibleTo(this);
}

void frmDial::SwitchTo(DialView view) {
  WidgetPlacement placement(*this);
  Views views(*this);
  fullView_ = SwitchView(placement, views, view, fullView_);
  // The number takes the room that the hidden commands left.
  controls_.numberStrip->layout()->activate();
  FitNumber();
  const bool full = view == DialView::kFull;
  controls_.viewSwitch->setIcon(
      GlyphIcon(full ? Glyph::kArrowUp : Glyph::kArrowDown, &Palette::onFrame));
  Describe(*controls_.viewSwitch, full ? "Kompaktansicht" : "Vollansicht");
}

void frmDial::ArrangeFull() {
  ArrangeFullView(controls_);
  controls_.body->setFixedHeight(controls_.body->property(kDesignedHeightTag).toInt());
  FitHeight();
  ShowHistoryPanel(HistoryShown());
}

// The call history stays open in name, for when the full view comes back.
void frmDial::ArrangeCompact() {
  // Most of what could have the focus is about to be hidden; left to itself it could go to the
  // close button.
  if (focusWidget() != controls_.viewSwitch) controls_.numberField->setFocus();
  ArrangeCompactView(controls_);
  controls_.history->hide();
  setFixedWidth(controls_.dialPad->width() + 2 * kFrameWidth);
  FitHeight();
}

void frmDial::FitHeight() {
  // In the compact view it is lower than the caption's font would like it.
  const int title =
      std::clamp(controls_.titleBar->minimumSizeHint().height(),
                 controls_.titleBar->minimumHeight(), controls_.titleBar->maximumHeight());
  setFixedHeight(title + controls_.body->maximumHeight() + 2 * kFrameWidth);
}

}  // namespace orvane
