#include "ui/dial/call_list_header.h"

#include <QStyleOptionHeader>

namespace orvane {

CallListHeader::CallListHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
  setSectionsClickable(true);
  setSectionsMovable(true);
  // The first column, too, may stand elsewhere.
  setFirstSectionMovable(true);
  setStretchLastSection(true);
  setHighlightSections(false);
}

// The toolkit's rising arrow points down.
void CallListHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const {
  QHeaderView::initStyleOptionForIndex(option, section);
  if (option->sortIndicator == QStyleOptionHeader::SortDown) {
    option->sortIndicator = QStyleOptionHeader::SortUp;
  } else if (option->sortIndicator == QStyleOptionHeader::SortUp) {
    option->sortIndicator = QStyleOptionHeader::SortDown;
  }
}

}  // namespace orvane
