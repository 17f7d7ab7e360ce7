#pragma once

#include <QLabel>
#include <QStringList>

namespace orvane {

// A label for plain text of any length. A line that does not fit ends in an ellipsis, and the whole
// text is then shown as the tooltip. Carriage return, line feed or both part the lines.
class ElidedLabel : public QLabel {
 public:
  explicit ElidedLabel(QWidget* parent);

  // Room for this many lines, whatever the text; 1 until set.
  void SetLineCount(int count);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QStringList Lines() const;
  bool Fits() const;

  int lineCount_ = 1;
};

}  // namespace orvane
