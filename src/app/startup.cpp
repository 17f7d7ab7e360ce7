#include "app/startup.h"

#include <string_view>

#include "app/host_paths.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

constexpr std::string_view kCommandLinePrefix = "TX:";
constexpr char kFieldSeparator = '~';

void BindHelpers(const std::string& programPath, HostHelper& first, HostHelper& second) {
  const std::string library = programPath + "Nordel17.dll";
  constexpr const char* kHelperIni = "TX2017.ini";
  first.InitialiseMessages(library, kHelperIni);
  first.SetLanguageResource(programPath + "zLangDE.dll");
  second.SetLanguageResource(first.LanguageResource());
  second.InitialiseMessages(library, kHelperIni);
}

}  // namespace

std::string JoinCommandLine(const std::vector<std::string>& words) {
  std::string line;
  for (const std::string& word : words) {
    if (&word != &words.front()) line += ' ';
    line += word;
  }
  return line;
}

StartupOutcome RunStartup(const RegistryFactory& newRegistry, SingleInstance& instance,
                          ProgramState& state, HostHelper& firstHelper, HostHelper& secondHelper,
                          const std::string& programFolder, const std::string& commandLine,
                          const StartupHooks& hooks) {
  HostEnvironment& host = state.host;
  host.programPath = programFolder + "\\";
  if (!commandLine.starts_with(kCommandLinePrefix)) {
    firstHelper.ShowMessage(PromptIcon::kExclamation, "Brisko kann nur über Talmix genutzt werden.",
                            "Programmstart nicht möglich!");
    return StartupOutcome::kRefused;
  }
  host.startArgs =
      Split(std::string_view(commandLine).substr(kCommandLinePrefix.size()), kFieldSeparator);
  if (!instance.Claim()) {
    if (!host.startArgs.front().empty()) hooks.sendToRunningInstance(host.startArgs.front());
    return StartupOutcome::kForwarded;
  }
  hooks.claimed();
  host.registry = newRegistry();
  if (host.registry) BindHostRegistry(*host.registry);
  if (!ReadHostPaths(host, firstHelper)) {
    host.registry.reset();
    return StartupOutcome::kRefused;
  }
  BindHelpers(host.programPath, firstHelper, secondHelper);
  hooks.executeCommands();
  return StartupOutcome::kRunning;
}

}  // namespace orvane
