#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace orvane {

// What stands behind the "=" of a registry file: quotes, backslash escapes, lists parted by commas,
// and "@" before values that are not plain text.

// The value as text; a list's parts joined with ", ". Nothing for a type that has no text.
std::optional<QString> DecodeRegistryValue(const QByteArray& raw);
QByteArray EncodeRegistryValue(const QString& value);

}  // namespace orvane
