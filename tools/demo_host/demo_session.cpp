#include "demo_host/demo_session.h"

#include <QByteArray>
#include <QtGlobal>

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

DemoFolders EnterDemoSession(const std::filesystem::path& root) {
  const auto base = std::filesystem::absolute(root);
  DemoFolders folders{base / "config", base / "run", base / "host", base / "line",
                      base / "line.log"};
  for (const auto& folder : {folders.config, folders.runtime, folders.host, folders.line}) {
    std::filesystem::create_directories(folder);
  }
  std::filesystem::permissions(folders.runtime, std::filesystem::perms::owner_all);
  KeepWaylandDisplay();
  PutPath("XDG_CONFIG_HOME", folders.config);
  PutPath("XDG_RUNTIME_DIR", folders.runtime);
  return folders;
}

}  // namespace orvane
