#include "platform/native/native.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QtGlobal>
#include <cstdint>
#include <filesystem>
#include <limits>

#include "platform/channel/linux/lock_file_instance.h"
#include "platform/channel/linux/socket_host_channel.h"
#include "platform/databases/jet/linux/jet_files.h"
#include "platform/databases/linux/mount_locks.h"
#include "platform/databases/odbc/odbc_databases.h"
#include "platform/desktop/linux/compositor.h"
#include "platform/desktop/linux/end_signals.h"
#include "platform/desktop/linux/qt_window_chrome.h"
#include "platform/lines/linux/sip_lines.h"
#include "platform/serial/linux/com_ports.h"
#include "platform/serial/linux/qt_serial_control.h"
#include "platform/settings/linux/profile_ini_file.h"
#include "platform/settings/linux/settings_registry.h"

namespace orvane::native {
namespace {

// Beside this program where it is built, in a folder for such helpers where it is installed.
std::filesystem::path JetReaderProgram() {
  const std::filesystem::path folder = QCoreApplication::applicationDirPath().toStdString();
  std::filesystem::path beside = folder / "orvane-jet-reader";
  std::error_code error;
  if (std::filesystem::exists(beside, error)) return beside;
  return folder.parent_path() / "libexec/orvane/orvane-jet-reader";
}

}  // namespace

// The compositor of a Wayland desktop places windows as it likes; the dial window has a place. Such
// a desktop may ask all programs for Wayland, which is no wish about this one.
void PrepareToolkit() {
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  if (!qEnvironmentVariableIsEmpty("DISPLAY") &&
      (platform.isEmpty() || platform.startsWith("wayland"))) {
    qputenv("QT_QPA_PLATFORM", "xcb");
  }
}

std::vector<std::string> CommandLineWords(int argc, const char* const* argv) {
  return {argv + 1, argv + argc};
}

std::unique_ptr<HostRegistry> MakeRegistry() {
  return std::make_unique<SettingsRegistry>();
}

std::unique_ptr<IniFile> MakeIni() {
  return std::make_unique<ProfileIniFile>();
}

std::unique_ptr<HostChannel> MakeChannel() {
  return std::make_unique<SocketHostChannel>();
}

std::unique_ptr<SingleInstance> MakeInstance() {
  return std::make_unique<LockFileInstance>();
}

std::unique_ptr<SerialControl> MakeSerial() {
  return std::make_unique<QtSerialControl>();
}

std::vector<std::string> ListSerialPorts() {
  return SerialPortNames();
}

std::unique_ptr<FolderLocks> MakeFolderLocks() {
  return std::make_unique<MountLocks>();
}

std::unique_ptr<EndRequests> MakeEndRequests() {
  return std::make_unique<EndSignals>();
}

std::unique_ptr<WindowChrome> MakeChrome(QWidget& window) {
  return std::make_unique<QtWindowChrome>(window, DesktopComposes);
}

std::vector<std::unique_ptr<LineServiceProvider>> LineProviders(EventLoop& loop,
                                                                CallHandles& handles) {
  BaresipControl::Settings baresip;
  const int port = qEnvironmentVariableIntValue("ORVANE_BARESIP_PORT");
  if (port > 0 && port <= std::numeric_limits<std::uint16_t>::max()) {
    baresip.port = static_cast<std::uint16_t>(port);
  }
  std::vector<std::unique_ptr<LineServiceProvider>> providers;
  providers.push_back(std::make_unique<SipLines>(loop, handles, baresip));
  return providers;
}

DatabaseEngines Databases(LongWork& work, const DriverThreads& threads) {
  const auto files = std::make_shared<JetFiles>(JetReaderProgram(), work);
  const auto server = std::make_shared<OdbcDatabases>(SqlServerAccess(), work, threads);
  return {[files](const ConnectionProperties& properties) { return files->Open(properties); },
          [server](const ConnectionProperties& properties) { return server->Open(properties); }};
}

}  // namespace orvane::native
