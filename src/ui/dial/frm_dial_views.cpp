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
    form_.c_.tabTab->setVisible(shown);
    form_.c_.grpFilter->setVisible(shown);
  }
  void ShowCommandButtons(bool shown) override {
    const DialControls& c = form_.c_;
    for (QWidget* command :
         std::initializer_list<QWidget*>{c.cmdOptionen, c.cmdHistory, c.cmdWdh, c.cmdGetClpbrd}) {
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
  return c_.cmdOptionen->isVisibleTo(this);
}

void frmDial::SwitchTo(DialView view) {
  WidgetPlacement placement(*this);
  Views views(*this);
  fullView_ = SwitchView(placement, views, view, fullView_);
  // The number takes the room that the hidden commands left.
  c_.numberStrip->layout()->activate();
  FitNumber();
  const bool full = view == DialView::kFull;
  c_.hovSizer->setIcon(GlyphIcon(full ? Glyph::kArrowUp : Glyph::kArrowDown, &Palette::onFrame));
  Describe(*c_.hovSizer, full ? "Kompaktansicht" : "Vollansicht");
}

void frmDial::ArrangeFull() {
  ArrangeFullView(c_);
  c_.infBase->setFixedHeight(c_.infBase->property(kDesignedHeightTag).toInt());
  FitHeight();
  ShowHistoryPanel(HistoryShown());
}

// The call history stays open in name, for when the full view comes back.
void frmDial::ArrangeCompact() {
  // Most of what could have the focus is about to be hidden; left to itself it could go to the
  // close button.
  if (focusWidget() != c_.hovSizer) c_.txtNr->setFocus();
  ArrangeCompactView(c_);
  c_.history->hide();
  setFixedWidth(c_.dialPad->width() + 2 * kFrameWidth);
  FitHeight();
}

void frmDial::FitHeight() {
  // In the compact view it is lower than the caption's font would like it.
  const int title = std::clamp(c_.panBase->minimumSizeHint().height(), c_.panBase->minimumHeight(),
                               c_.panBase->maximumHeight());
  setFixedHeight(title + c_.infBase->maximumHeight() + 2 * kFrameWidth);
}

}  // namespace orvane
