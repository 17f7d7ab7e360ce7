#pragma once

#include <QObject>

class QApplication;

namespace orvane {

// Keeps the application's style sheet in step with the desktop's colours and font. Lives as long as
// the windows do.
class ApplicationStyle : public QObject {
 public:
  explicit ApplicationStyle(QApplication& application);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Apply();

  QApplication& application_;
};

}  // namespace orvane
