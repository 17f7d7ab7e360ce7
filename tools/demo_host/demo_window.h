#pragma once

#include <QWidget>
#include <cstddef>

#include "sample_contacts.h"

class QLabel;
class QPlainTextEdit;

namespace orvane {

// The host's stand-in: its contacts, each with a button that hands the number to the dialer, and
// what comes back. It is the tray window that the dialer looks for.
class DemoWindow : public QWidget {
  Q_OBJECT

 public:
  DemoWindow(const SampleContacts& contacts, const QString& lineTitle, QWidget* parent = nullptr);

  void AddNotification(const QString& text);
  void AddHeard(const QString& text);
  void SetDialerState(const QString& text);

 Q_SIGNALS:
  // The company's place in the contacts.
  void DialRequested(std::size_t company);
  void Closing();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QWidget* ContactTable(const SampleContacts& contacts);
  QWidget* DialButton(std::size_t company, const QString& name);
  QWidget* LogPanel(const QString& title, QPlainTextEdit* log);

  QPlainTextEdit* notifications_;
  QPlainTextEdit* heard_;
  QLabel* dialerState_;
};

}  // namespace orvane
