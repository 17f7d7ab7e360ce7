#include "platform/linux/com_ports.h"

#include <QDir>
#include <QSerialPortInfo>
#include <QStandardPaths>
#include <algorithm>
#include <tuple>

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
                                     const QStringList& devices) {
  const QDir folder(linkFolder);
  const QString wanted = QStringLiteral("com%1").arg(port);
  // A link that leads nowhere, or to a device, counts as a system entry.
  for (const QString& name : folder.entryList(QDir::Files | QDir::System, QDir::Name)) {
    if (name.compare(wanted, Qt::CaseInsensitive) == 0) return folder.filePath(name);
  }
  if (port < 1 || port > devices.size()) return std::nullopt;
  return devices[port - 1];
}

QStringList SerialDevices() {
  QStringList devices;
  for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
    devices += info.systemLocation();
  }
  return InComOrder(devices);
}

QString ComLinkFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/orvane");
}

}  // namespace orvane
