#pragma once

#include <QObject>
#include <QProcess>
#include <QString>
#include <string>

#include "platform/host_channel.h"

namespace orvane {

// The host's end of the connection to the dialer: starts it, sends it commands, ends it.
class DialerLink : public QObject {
  Q_OBJECT

 public:
  DialerLink(HostChannel& channel, QString program, QObject* parent = nullptr);
  ~DialerLink() override;

  // Starts the dialer with one command line.
  void Start(const std::string& commandLine);
  bool IsRunning() const;

  // Hands a command to the running dialer; false when its window is not there or did not take it.
  bool Send(const std::string& message);

  // Sends `killMessage` and gives the dialer time to end; true when it runs no more and ended well.
  // One that still runs is ended by force together with this object.
  bool Close(const std::string& killMessage);

 Q_SIGNALS:
  // German text for the status line.
  void StateChanged(const QString& text);

 private:
  HostChannel& channel_;
  QString program_;
  QProcess process_;
};

}  // namespace orvane
