#pragma once

#include <QHeaderView>

namespace orvane {

// Column titles whose arrow points the way that users of the host know: up for rising.
class CallListHeader : public QHeaderView {
 public:
  explicit CallListHeader(QWidget* parent);

 protected:
  void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;
};

}  // namespace orvane
