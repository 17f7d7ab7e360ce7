#include <QByteArray>
#include <QtGlobal>

#include "demo_host/demo_system.h"
#include "platform/channel/linux/socket_host_channel.h"
#include "platform/settings/linux/settings_registry.h"

namespace orvane {
namespace {

// A Wayland display is named relative to the folder that is about to change.
void KeepWaylandDisplay() {
  const QByteArray display = qgetenv("WAYLAND_DISPLAY");
  const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
  if (display.isEmpty() || runtime.isEmpty() || display.startsWith('/')) return;
  qputenv("WAYLAND_DISPLAY", runtime + '/' + display);
}

void PutPath(const char* name, const std::filesystem::path& path) {
  qputenv(name, QByteArray::fromStdString(path.string()));
}

}  // namespace

// Settings and messages of the demo lie in folders of its own, by this process's environment and
// that of those it starts.
DemoFolders EnterDemoSession(const std::filesystem::path& root) {
  const auto base = std::filesystem::absolute(root);
  const auto config = base / "config", runtime = base / "run";
  DemoFolders folders{base / "host", base / "line", base / "line.log", base / "messages.log"};
  for (const auto& folder : {config, runtime, folders.host, folders.line}) {
    std::filesystem::create_directories(folder);
  }
  std::filesystem::permissions(runtime, std::filesystem::perms::owner_all);
  KeepWaylandDisplay();
  PutPath("XDG_CONFIG_HOME", config);
  PutPath("XDG_RUNTIME_DIR", runtime);
  return folders;
}

std::unique_ptr<HostRegistry> NewHostRegistry() {
  return std::make_unique<SettingsRegistry>();
}

std::unique_ptr<HostChannel> NewHostChannel() {
  return std::make_unique<SocketHostChannel>();
}

void SetCommandLine(QProcess& process, const QString& text) {
  process.setArguments({text});
}

}  // namespace orvane
