#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orvane {

// The machine's serial devices in the order of their COM numbers: the built-in ones first, so that
// an adapter that is plugged in does not move them, then the others by name and number.
QStringList InComOrder(QStringList devices);

// The device of COM `port`: the link "com<port>" in `linkFolder` (any letter case, also when it
// leads nowhere), otherwise the port-th of the devices, which `devices` gives in order. Nothing
// when there is none. The devices are asked for only without a link, because looking for them takes
// long.
std::optional<QString> ComPortDevice(int port, const QString& linkFolder,
                                     const std::function<QStringList()>& devices);

// The devices that the machine has now, in order.
QStringList SerialDevices();

// "COM1" and so on for the ports whose device is there now, in order.
std::vector<std::string> SerialPortNames();

// Where users put the links: "orvane" in their configuration folder.
QString ComLinkFolder();

}  // namespace orvane
