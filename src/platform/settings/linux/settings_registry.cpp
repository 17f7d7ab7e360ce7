#include "platform/settings/linux/settings_registry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>
#include <QStandardPaths>
#include <chrono>
#include <utility>

#include "platform/errors.h"
#include "platform/settings/linux/registry_text.h"

namespace orvane {
namespace {

constexpr qint64 kLargestFileBytes = qint64{16} * 1024 * 1024;
constexpr std::chrono::milliseconds kLockWait{2000};

RegistryError AccessDenied() {
  return {5, "Zugriff verweigert"};
}
RegistryError Damaged() {
  return {1009, "Die Konfigurationsregistrierung ist beschädigt"};
}

QString ToQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString AsKey(std::string_view path) {
  return ToQString(path).replace(u'\\', u'/');
}

QString RootName(std::uint32_t root) {
  return root == kRootCurrentUser ? QStringLiteral("HKEY_CURRENT_USER")
                                  : QStringLiteral("HKEY_%1").arg(root, 8, 16, QLatin1Char('0'));
}

}  // namespace

QString SettingsRegistry::DefaultFile() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/Nordel/registry.ini");
}

SettingsRegistry::SettingsRegistry(QString file)
    : file_(std::move(file)), root_(RootName(kRootCurrentUser)) {}

void SettingsRegistry::SetApplicationName(std::string_view /*name*/) {}

void SettingsRegistry::SetRootKey(std::uint32_t root) {
  root_ = RootName(root);
}

void SettingsRegistry::SetKeyPath(std::string_view path) {
  keyPath_ = AsKey(path);
}

QString SettingsRegistry::FullKey(std::string_view subKey, std::string_view name) const {
  QString key = root_;
  for (const QString& part : {keyPath_, AsKey(subKey), ToQString(name)}) {
    if (!part.isEmpty()) key += u'/' + part;
  }
  return key;
}

RegistryText SettingsRegistry::Load() const {
  const QFileInfo info(file_);
  if (!info.exists()) {
    // "Not there" must not hide "not allowed to look".
    if (QFileInfo(info.path()).exists() && !QFileInfo(info.path()).isExecutable()) {
      throw AccessDenied();
    }
    return {};
  }
  if (!info.isFile()) throw AccessDenied();
  QFile file(file_);
  if (!file.open(QIODevice::ReadOnly)) throw AccessDenied();
  const QByteArray bytes = file.read(kLargestFileBytes + 1);
  if (file.error() != QFileDevice::NoError) throw AccessDenied();
  if (bytes.size() > kLargestFileBytes) throw Damaged();
  auto text = RegistryText::Parse(bytes);
  if (!text) throw Damaged();
  return *std::move(text);
}

void SettingsRegistry::Store(const RegistryText& text) const {
  const bool isNew = !QFileInfo::exists(file_);
  QSaveFile file(file_);
  if (!file.open(QIODevice::WriteOnly)) throw AccessDenied();
  // It holds the login of the contact database.
  if (isNew) file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
  file.write(text.Text());
  if (!file.commit()) throw AccessDenied();
}

std::optional<std::string> SettingsRegistry::Read(std::string_view subKey, std::string_view name) {
  const auto value = Load().Value(FullKey(subKey, name));
  return value ? std::optional(value->toStdString()) : std::nullopt;
}

void SettingsRegistry::Change(const std::function<void(RegistryText&)>& change) const {
  if (!QDir().mkpath(QFileInfo(file_).path())) throw AccessDenied();
  QLockFile lock(file_ + QStringLiteral(".lock"));
  if (!lock.tryLock(static_cast<int>(kLockWait.count()))) throw AccessDenied();
  RegistryText text = Load();
  change(text);
  Store(text);
}

void SettingsRegistry::Write(std::string_view subKey, std::string_view name,
                             std::string_view value) {
  // As in the system that knows a registry, a text ends at its first zero.
  const QString stored = ToQString(value.substr(0, value.find('\0')));
  Change([&](RegistryText& text) { text.SetValue(FullKey(subKey, name), stored); });
}

void SettingsRegistry::Remove(std::string_view subKey, std::string_view name) {
  Change([&](RegistryText& text) { text.RemoveValue(FullKey(subKey, name)); });
}

}  // namespace orvane
