#include "demo_host/dialer_link.h"

#include <algorithm>
#include <utility>

#include "demo_host/demo_system.h"
#include "remote/command_channel.h"
#include "remote/copy_data_text.h"
#include "remote/senders.h"

namespace orvane {
namespace {

// How long the dialer gets to end.
constexpr int kEndMs = 3000;

}  // namespace

DialerLink::DialerLink(HostChannel& channel, QString program, QObject* parent)
    : QObject(parent), channel_(channel), program_(std::move(program)) {
  process_.setProcessChannelMode(QProcess::ForwardedChannels);
  connect(&process_, &QProcess::started, this, [this] {
    Q_EMIT StateChanged(tr("Wählprogramm läuft (Prozess %1)").arg(process_.processId()));
  });
  connect(&process_, &QProcess::finished, this,
          [this] { Q_EMIT StateChanged(tr("Wählprogramm beendet")); });
  connect(&process_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
    if (error == QProcess::FailedToStart) {
      Q_EMIT StateChanged(tr("Wählprogramm nicht gefunden: %1").arg(program_));
    }
  });
}

DialerLink::~DialerLink() {
  process_.disconnect(this);
  if (!IsRunning()) return;
  process_.terminate();
  if (!process_.waitForFinished(kEndMs)) process_.kill();
  process_.waitForFinished(kEndMs);
}

void DialerLink::Start(const std::string& commandLine) {
  if (IsRunning()) return;
  process_.setProgram(program_);
  SetCommandLine(process_, QString::fromStdString(commandLine));
  process_.start();
}

bool DialerLink::IsRunning() const {
  return process_.state() != QProcess::NotRunning;
}

bool DialerLink::Send(const std::string& message) {
  const auto dialer = FindDialWindow(channel_);
  return dialer && channel_.SendCopyData(*dialer, MakeCopyData(message));
}

bool DialerLink::Close(const std::string& killMessage) {
  if (!IsRunning()) return true;
  // A dialer that ends may be gone before it has answered.
  Send(killMessage);
  return process_.waitForFinished(kEndMs) && process_.exitStatus() == QProcess::NormalExit &&
         process_.exitCode() == 0;
}

}  // namespace orvane
