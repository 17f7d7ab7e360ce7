// The switch between the full view and the compact one at the top edge of the screen.
#include <QLineEdit>
#include <QPushButton>

#include "ui/dial/dial_views.h"
#include "ui/dial/frm_dial.h"
#include "ui/dial/widget_placement.h"
#include "ui/logic/view_toggle.h"
#include "ui/style/glyph_icon.h"

namespace orvane {

// What the switch does to the dial window.
class frmDial::Views : public TwoViews {
 public:
  explicit Views(frmDial& form) : form_(form) {}

  void ShowListControls(bool shown) override { form_.ShowHistoryPanel(shown && form_.HistoryShown()); }
  void ShowCommandButtons(bool shown) override {
    DialControls& c = form_.c_;
    for (QWidget* command : std::initializer_list<QWidget*>{c.cmdOptionen, c.cmdHistory, c.cmdWdh,
                                                            c.cmdGetClpbrd}) {
      command->setVisible(shown);
    }
  }
  void ArrangePanel(DialView view) override { form_.ArrangeView(view); }
  void ApplyWindowShape() override { form_.ApplyWindowShape(); }
  void SetTopmost(bool topmost) override { form_.chrome_->SetTopmost(topmost ? -1 : 0, true); }

 private:
  frmDial& form_;
};

bool frmDial::FullViewShown() const {
  return c_.cmdOptionen->isVisibleTo(this);
}

}  // namespace orvane
