#include <QFile>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QRegularExpression>
#include <string>
#include <utility>

#include "demo_host/demo_line.h"
#include "demo_host/demo_system.h"
#include "modem_simulator.h"
#include "platform/serial/linux/com_ports.h"
#include "sip/sip_demo.h"

namespace orvane {
namespace {

class ModemDemoLine : public DemoLine {
 public:
  // The dialer finds the modem as COM1.
  ModemDemoLine() {
    const std::filesystem::path folder = ComLinkFolder().toStdString();
    std::filesystem::create_directories(folder);
    std::filesystem::remove(folder / "com1");
    std::filesystem::create_symlink(modem_.SlavePath(), folder / "com1");
  }
  void Configure(HostInstallationOptions& options) const override {
    options.dialMethod = kDialByModem;
  }
  QString Title() const override { return QStringLiteral("Modem an COM1"); }
  void Listen(Listener listener) override {
    modem_.SetCommandHandler([listener = std::move(listener)](const std::string& command) {
      listener(QStringLiteral("< ") + QString::fromStdString(command));
    });
  }

 private:
  ModemSimulator modem_;
};

// Reads the far end's message log as it grows.
class SipDemoLine : public DemoLine {
 public:
  explicit SipDemoLine(const std::filesystem::path& folder) : demo_(folder) {
    qputenv("ORVANE_BARESIP_PORT", QByteArray::number(demo_.ControlPort()));
    log_.setFileName(QString::fromStdString(demo_.FarEndLog().string()));
  }
  void Configure(HostInstallationOptions& options) const override {
    options.dialMethod = kDialByLine;
    options.tapiLineName = demo_.Account("anna");
  }
  QString Title() const override { return QStringLiteral("SIP-Gegenstelle"); }
  void Listen(Listener listener) override {
    listener_ = std::move(listener);
    // The far end creates its log with its first call.
    watcher_.addPath(QFileInfo(log_).path());
    for (const auto changed :
         {&QFileSystemWatcher::fileChanged, &QFileSystemWatcher::directoryChanged}) {
      QObject::connect(&watcher_, changed, &watcher_, [this] { Read(); });
    }
    Read();
  }

 private:
  void Read() {
    static const QRegularExpression request(QStringLiteral("^(INVITE|CANCEL|BYE) (\\S+)"));
    if (!log_.isOpen()) {
      if (!log_.open(QIODevice::ReadOnly)) return;
      watcher_.addPath(log_.fileName());
    }
    for (QByteArray part = log_.readLine(); !part.isEmpty(); part = log_.readLine()) {
      line_ += part;
      if (!line_.endsWith('\n')) continue;
      const auto match = request.match(QString::fromUtf8(std::exchange(line_, {})));
      if (match.hasMatch()) {
        listener_(QStringLiteral("< %1 %2").arg(match.captured(1), match.captured(2)));
      }
    }
  }

  SipDemo demo_;
  QFile log_;
  // What has come of the line that is being written.
  QByteArray line_;
  QFileSystemWatcher watcher_;
  Listener listener_;
};

// Every way to call, and none of them set up: for trying out the options.
class ChoiceOfDemoLines : public DemoLine {
 public:
  explicit ChoiceOfDemoLines(const std::filesystem::path& folder) : sip_(folder) {
    qputenv("ORVANE_SIMULATED_LINES", "1");
  }
  void Configure(HostInstallationOptions& options) const override {
    options.dialMethod = kNoDialling;
  }
  QString Title() const override { return QStringLiteral("Modem an COM1 und SIP-Gegenstelle"); }
  void Listen(Listener listener) override {
    modem_.Listen(listener);
    sip_.Listen(std::move(listener));
  }

 private:
  ModemDemoLine modem_;
  SipDemoLine sip_;
};

}  // namespace

std::unique_ptr<DemoLine> MakeSystemDemoLine(const std::string& name,
                                             const std::filesystem::path& folder) {
  if (name == "modem") return std::make_unique<ModemDemoLine>();
  if (name == "choice") return std::make_unique<ChoiceOfDemoLines>(folder);
  if (name == "sip") return std::make_unique<SipDemoLine>(folder);
  return nullptr;
}

}  // namespace orvane
