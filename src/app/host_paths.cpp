#include "app/host_paths.h"

#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "app/unscramble_setting.h"
#include "platform/text/native_path.h"

namespace orvane {
namespace {

// What the host stores as login when its contacts live in the Jet file.
constexpr std::string_view kJetLoginMarker = "~.~";

bool IsFolder(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_directory(NativePath(path), error);
}

std::string Unscramble(std::string_view text) {
  return UnscrambleSetting(text, kScrambleKey, kScrambleRounds);
}

void ReadServerSettings(HostEnvironment& host, Prompts& prompts) {
  const std::string name = ReadHostSetting(host, prompts, "SrvName", "");
  const std::string login = ReadHostSetting(host, prompts, "SrvLogin", "");
  const std::string password = ReadHostSetting(host, prompts, "SrvPass", "");
  host.useSqlServer = false;
  if (name.empty() && login.empty()) return;
  host.sqlLogin = Unscramble(login);
  if (host.sqlLogin == kJetLoginMarker) return;
  host.useSqlServer = true;
  host.sqlServerName = Unscramble(name);
  host.sqlPassword = Unscramble(password);
}

}  // namespace

void BindHostRegistry(HostRegistry& registry) {
  registry.SetApplicationName("Talmix" + std::string(kHostVersion));
  registry.SetRootKey(kRootCurrentUser);
  registry.SetKeyPath("SOFTWARE\\Nordel\\Talmix" + std::string(kHostVersion));
}

std::string ReadHostSetting(const HostEnvironment& host, Prompts& prompts, std::string_view name,
                            std::string_view fallback) {
  if (!host.registry) {
    prompts.ShowMessage(PromptIcon::kStop, "Die Anwendung Brisko reagiert nicht.",
                        "Brisko reagiert nicht!");
    return {};
  }
  try {
    return host.registry->Read("", name, fallback);
  } catch (const std::exception&) {
    prompts.ShowMessage(PromptIcon::kStop, "Zugriffsfehler auf Registry", "Key-Zugriffsfehler 2");
    return {};
  }
}

bool ReadHostPaths(HostEnvironment& host, Prompts& prompts) {
  host.hostPath = ReadHostSetting(host, prompts, "TXPfad", "");
  if (host.hostPath.empty() || !IsFolder(host.hostPath + "Daten\\User")) {
    prompts.ShowMessage(
        PromptIcon::kExclamation,
        "Das Talmix Basisverzeichnis steht nicht im Zugriff.\r\r> '" + host.hostPath + "'",
        "Programmstart nicht möglich!");
    return false;
  }
  ReadServerSettings(host, prompts);
  host.dataPath = host.hostPath + "Daten\\";
  host.resPath = host.hostPath + "res\\";
  return true;
}

std::string UserFolder(const HostEnvironment& host, std::int32_t userNumber) {
  return host.dataPath + "User\\" + std::to_string(userNumber) + "\\";
}

}  // namespace orvane
