#include "demo_host/demo_system.h"

#include <stdexcept>

#include "app/host_paths.h"
#include "demo_host/demo_line.h"
#include "platform/channel/windows/message_host_channel.h"
#include "platform/settings/windows/system_registry.h"
#include "platform/text/native_path.h"

namespace orvane {
namespace {

// There is one registry and one desktop: beside an installed host there is no place for the demo.
void RefuseBesideAHost(const std::filesystem::path& demoHost) {
  const auto registry = NewHostRegistry();
  BindHostRegistry(*registry);
  const std::string installed = Stored(*registry, setting::kHostFolder).value_or("");
  std::error_code error;
  const auto folder = NativePath(installed);
  // The demo's own is stored as it is composed here; the library cannot compare folders.
  if (!installed.empty() && std::filesystem::exists(folder, error) &&
      folder.lexically_normal() != (demoHost / "").lexically_normal()) {
    throw std::runtime_error("Auf diesem Rechner ist schon ein Talmix eingerichtet: " + installed);
  }
}

}  // namespace

DemoFolders EnterDemoSession(const std::filesystem::path& root) {
  const auto base = std::filesystem::absolute(root);
  DemoFolders folders{base / "host", base / "line", base / "line.log", base / "messages.log"};
  for (const auto& folder : {folders.host, folders.line}) {
    std::filesystem::create_directories(folder);
  }
  RefuseBesideAHost(folders.host);
  return folders;
}

std::unique_ptr<HostRegistry> NewHostRegistry() {
  return std::make_unique<SystemRegistry>();
}

std::unique_ptr<HostChannel> NewHostChannel() {
  return std::make_unique<MessageHostChannel>();
}

std::unique_ptr<DemoLine> MakeSystemDemoLine(const std::string& /*name*/,
                                             const std::filesystem::path& /*folder*/) {
  return nullptr;
}

// No quotes around it, whatever it holds.
void SetCommandLine(QProcess& process, const QString& text) {
  process.setNativeArguments(text);
}

}  // namespace orvane
