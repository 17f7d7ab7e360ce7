#include "platform/native/native.h"

#include "platform/channel/windows/message_host_channel.h"
#include "platform/channel/windows/mutex_instance.h"
#include "platform/databases/odbc/odbc_databases.h"
#include "platform/desktop/windows/session_end.h"
#include "platform/desktop/windows/system_window_chrome.h"
#include "platform/lines/windows/tapi32_lines.h"
#include "platform/serial/windows/com_ports.h"
#include "platform/serial/windows/comm_serial_control.h"
#include "platform/settings/windows/system_ini_file.h"
#include "platform/settings/windows/system_registry.h"
#include "platform/system/windows/command_line.h"

namespace orvane::native {

void PrepareToolkit() {}

// One word, because those that the runtime makes have lost quotes and blanks.
std::vector<std::string> CommandLineWords(int, const char* const*) {
  return {CommandLineText()};
}

std::unique_ptr<HostRegistry> MakeRegistry() {
  return std::make_unique<SystemRegistry>();
}

std::unique_ptr<IniFile> MakeIni() {
  return std::make_unique<SystemIniFile>();
}

std::unique_ptr<HostChannel> MakeChannel() {
  return std::make_unique<MessageHostChannel>();
}

std::unique_ptr<SingleInstance> MakeInstance() {
  return std::make_unique<MutexInstance>();
}

std::unique_ptr<SerialControl> MakeSerial() {
  return std::make_unique<CommSerialControl>();
}

std::vector<std::string> ListSerialPorts() {
  return SerialPortNames();
}

// A server of Windows files is the one that locks.
std::unique_ptr<FolderLocks> MakeFolderLocks() {
  return std::make_unique<TrustedFolderLocks>();
}

std::unique_ptr<EndRequests> MakeEndRequests() {
  return std::make_unique<SessionEnd>();
}

std::unique_ptr<WindowChrome> MakeChrome(QWidget& window) {
  return std::make_unique<SystemWindowChrome>(window);
}

std::vector<std::unique_ptr<LineServiceProvider>> LineProviders(EventLoop& loop,
                                                                CallHandles& handles) {
  std::vector<std::unique_ptr<LineServiceProvider>> providers;
  providers.push_back(std::make_unique<Tapi32Lines>(loop, handles));
  return providers;
}

DatabaseEngines Databases(LongWork& work, const DriverThreads& threads) {
  const auto files = std::make_shared<OdbcDatabases>(JetFileAccess(), work, threads);
  const auto server = std::make_shared<OdbcDatabases>(SqlServerAccess(), work, threads);
  return {[files](const ConnectionProperties& properties) { return files->Open(properties); },
          [server](const ConnectionProperties& properties) { return server->Open(properties); }};
}

}  // namespace orvane::native
