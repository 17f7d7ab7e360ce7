#include "app/host_paths.h"

#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "app/number_text.h"
#include "app/unscramble_setting.h"
#include "platform/errors.h"
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

template <typename Setting>
std::string ReadText(const HostEnvironment& host, Prompts& prompts, const Setting& setting,
                     std::string_view fallback) {
  if (!host.registry) {
    prompts.ShowMessage(PromptIcon::kStop, "Die Anwendung Brisko reagiert nicht.",
                        "Brisko reagiert nicht!");
    return {};
  }
  try {
    return Stored(*host.registry, setting).value_or(std::string(fallback));
  } catch (const std::exception&) {
    prompts.ShowMessage(PromptIcon::kStop, "Zugriffsfehler auf Registry", "Key-Zugriffsfehler 2");
    return {};
  }
}

void ReadServerSettings(HostEnvironment& host, Prompts& prompts) {
  const std::string name = ReadHostSetting(host, prompts, setting::kServerName);
  const std::string login = ReadHostSetting(host, prompts, setting::kServerLogin);
  const std::string password = ReadHostSetting(host, prompts, setting::kServerPassword);
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
  registry.SetKeyPath(std::string(kMakerKey) + "\\Talmix" + std::string(kHostVersion));
}

std::string ReadHostSetting(const HostEnvironment& host, Prompts& prompts,
                            const TextSetting& setting) {
  return ReadText(host, prompts, setting, setting.fallback);
}

std::uint8_t ReadHostSetting(const HostEnvironment& host, Prompts& prompts,
                             const ByteSetting& setting) {
  return ToByte(ReadText(host, prompts, setting, setting.fallback));
}

double ReadHostSetting(const HostEnvironment& host, Prompts& prompts,
                       const NumberSetting& setting) {
  return LeadingNumber(ReadText(host, prompts, setting, std::to_string(setting.fallback)));
}

bool IsOn(HostRegistry& registry, const NumberSetting& setting) {
  return LeadingNumber(Stored(registry, setting).value_or("")) != 0;
}

HostRegistry& RegistryOf(const HostEnvironment& host) {
  if (!host.registry) throw ObjectNotSet<RegistryError>();
  return *host.registry;
}

bool ReadHostPaths(HostEnvironment& host, Prompts& prompts) {
  host.hostPath = ReadHostSetting(host, prompts, setting::kHostFolder);
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
