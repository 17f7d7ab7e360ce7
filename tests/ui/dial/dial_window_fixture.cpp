#include "dial_window_fixture.h"

#include <QClipboard>
#include <QListWidget>

namespace orvane {

void DialWindowFixture::SetClipboard(const std::string& text) {
  QApplication::clipboard()->setText(QString::fromStdString(text));
}

std::vector<std::string> DialWindowFixture::Log() {
  std::vector<std::string> lines;
  const auto* log = Find<QListWidget>("lstCallProgress");
  for (int row = 0; row < log->count(); ++row) {
    lines.push_back(log->item(row)->text().toStdString());
  }
  return lines;
}

}  // namespace orvane
