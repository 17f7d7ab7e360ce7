#include "platform/serial/linux/com_ports.h"

#include <QDir>
#include <QFileInfo>
#include <QSerialPortInfo>
#include <QStandardPaths>
#include <algorithm>
#include <tuple>

#include "platform/serial_control.h"

namespace orvane {
namespace {

// "/dev/ttyUSB10" comes after "/dev/ttyUSB9".
auto SortKey(const QString& device) {
  qsizetype digits = device.size();
  while (digits > 0 && device[digits - 1].isDigit()) --digits;
  const QString kind = device.left(digits);
  return std::tuple(kind != QStringLiteral("/dev/ttyS"), kind, device.mid(digits).toULongLong(),
                    device);
}

}  // namespace

QStringList InComOrder(QStringList devices) {
  std::sort(devices.begin(), devices.end(),
            [](const QString& a, const QString& b) { return SortKey(a) < SortKey(b); });
  return devices;
}

std::optional<QString> ComPortDevice(int port, const QString& linkFolder,
                                     const std::function<QStringList()>& devices) {
  const QDir folder(linkFolder);
  const QString wanted = QStringLiteral("com%1").arg(port);
  // A link that leads nowhere, or to a device, counts as a system entry.
  for (const QString& name : folder.entryList(QDir::Files | QDir::System, QDir::Name)) {
    if (name.compare(wanted, Qt::CaseInsensitive) == 0) return folder.filePath(name);
  }
  const QStringList found = devices();
  if (port < 1 || port > found.size()) return std::nullopt;
  return found[port - 1];
}

QStringList SerialDevices() {
  QStringList devices;
  for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
    devices += info.systemLocation();
  }
  return InComOrder(devices);
}

std::vector<std::string> SerialPortNames() {
  QStringList found = SerialDevices();
  std::vector<std::string> names;
  for (int port = 1; port <= kSerialMaxPort; ++port) {
    const auto device =
        ComPortDevice(port, ComLinkFolder(), [&found]() -> QStringList { return found; });
    // A link whose adapter is unplugged leads nowhere.
    if (device && QFileInfo::exists(*device)) names.push_back("COM" + std::to_string(port));
  }
  return names;
}

QString ComLinkFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/orvane");
}

}  // namespace orvane
