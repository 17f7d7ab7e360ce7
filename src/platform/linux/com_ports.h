#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace orvane {

// The machine's serial devices in the order of their COM numbers: the built-in ones first, so that
// an adapter that is plugged in does not move them, then the others by name and number.
QStringList InComOrder(QStringList devices);

// The device of COM `port`: the link "com<port>" in `linkFolder` (any letter case, also when it
// leads nowhere), otherwise the port-th of `devices`, which are in order. Nothing when there is
// none.
std::optional<QString> ComPortDevice(int port, const QString& linkFolder,
                                     const QStringList& devices);

// The devices that the machine has now, in order.
QStringList SerialDevices();

// Where users put the links: "orvane" in their configuration folder.
QString ComLinkFolder();

}  // namespace orvane
