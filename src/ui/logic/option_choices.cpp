#include "ui/logic/option_choices.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "app/file_text.h"
#include "app/host_paths.h"
#include "app/number_text.h"
#include "platform/errors.h"
#include "platform/text/ansi.h"
#include "platform/text/file_replacement.h"
#include "remote/senders.h"

namespace orvane {
namespace {

constexpr std::string_view kCallMonitor = "TapiMon";
constexpr std::string_view kTestNumber = "TestRufNr";
constexpr std::string_view kTestTarget = "TestRufNrIE";
constexpr std::int32_t kErrorObjectNotSet = 91;

HostRegistry& RegistryOf(const HostEnvironment& host) {
  if (host.registry) return *host.registry;
  throw RegistryError(kErrorObjectNotSet, "Objektvariable nicht festgelegt");
}

std::string SpeedDialPath(const std::string& userPath) {
  return userPath + "res\\Kurzwahl.dat";
}

// Registry values that are all written or, when one fails, put back.
class RegistryChanges {
 public:
  explicit RegistryChanges(HostRegistry& registry) : registry_(registry) {}
  ~RegistryChanges() {
    for (const auto& [name, value] : former_) {
      try {
        if (value) {
          registry_.Write("", name, *value);
        } else {
          registry_.Remove("", name);
        }
      } catch (const RegistryError&) {
        // It refused a value just now; the others may still go in.
      }
    }
  }
  RegistryChanges(const RegistryChanges&) = delete;
  RegistryChanges& operator=(const RegistryChanges&) = delete;

  void Write(std::string_view name, const std::string& value) {
    former_.emplace_back(name, Former(name));
    registry_.Write("", name, value);
  }
  void Keep() { former_.clear(); }

 private:
  // Nothing for a value that does not exist: only then the fallback decides what is read.
  std::optional<std::string> Former(std::string_view name) {
    std::string value = registry_.Read("", name, "0");
    if (value == "0" && registry_.Read("", name, "1") == "1") return std::nullopt;
    return value;
  }

  HostRegistry& registry_;
  std::vector<std::pair<std::string, std::optional<std::string>>> former_;
};

void WriteChoices(RegistryChanges& registry, const OptionChoices& choices) {
  registry.Write(kTestNumber, choices.testNumber);
  registry.Write(kTestTarget, std::to_string(choices.testTarget));
  registry.Write("CTI", std::to_string(choices.dialMethod));
  registry.Write("AmtInt", choices.outsideLineInt);
  registry.Write("AmtExt", choices.outsideLineExt);
  registry.Write("ComPort", std::to_string(choices.comPort));
  registry.Write("TapiBez", choices.lineName);
}

std::string HostNotification(const OptionChoices& choices) {
  return "TAPI_ReInit~" + (choices.callMonitor ? choices.lineName : std::string("|"));
}

}  // namespace

OptionChoices CurrentChoices(const ProgramState& state, Prompts& prompts) {
  const auto number = [&](std::string_view name) {
    return LeadingNumber(ReadHostSetting(state.host, prompts, name, "0"));
  };
  const DialSettings& settings = state.settings;
  OptionChoices choices;
  choices.callMonitor = number(kCallMonitor) != 0;
  choices.testNumber = ReadHostSetting(state.host, prompts, kTestNumber, "");
  choices.testTarget = number(kTestTarget) == kTestExternal ? kTestExternal : kTestInternal;
  choices.dialMethod = std::min(settings.dialMethod, kDialMethodTapi);
  choices.outsideLineInt = settings.outsideLineInt;
  choices.outsideLineExt = settings.outsideLineExt;
  choices.comPort = settings.comPortNumber;
  choices.lineName = settings.tapiLineName;
  return choices;
}

SpeedDialMemory ReadSpeedDialMemory(const std::string& userPath) {
  return ParseSpeedDialFile(DecodeAnsi(ReadWholeFile(SpeedDialPath(userPath))));
}

void SaveTestNumber(HostEnvironment& host, const std::string& number, int target) {
  HostRegistry& registry = RegistryOf(host);
  registry.Write("", kTestNumber, number);
  registry.Write("", kTestTarget, std::to_string(target));
}

void ApplyOptions(Services& services, ProgramState& state, const OptionChoices& choices,
                  const ApplyContext& context) {
  HostRegistry& registry = RegistryOf(state.host);
  std::unique_ptr<FileReplacement> file;
  if (context.speedDial) {
    file = std::make_unique<FileReplacement>(SpeedDialPath(context.userPath),
                                             EncodeAnsi(SpeedDialFileText(*context.speedDial)));
  }
  RegistryChanges changes(registry);
  WriteChoices(changes, choices);
  if (file) file->Commit();
  changes.Keep();
  if (choices.dialMethod != kDialMethodTapi) state.settings.tapiLineId = kNoTapiLine;
  context.reloadSettings();
  const auto notifyHost = [&] {
    SendToHost(services.channel, state.host.userNumber, HostNotification(choices));
  };
  try {
    if (choices.callMonitor != context.callMonitorBefore) {
      registry.Write("", kCallMonitor, choices.callMonitor ? "1" : "0");
    }
  } catch (const RegistryError& error) {
    // The line is another one already, whatever becomes of the monitor.
    notifyHost();
    throw RegistryError(error.Number(),
                        "Der TAPI-Anrufmonitor konnte nicht gespeichert werden. Alle anderen "
                        "Einstellungen wurden übernommen. " +
                            error.Description());
  }
  notifyHost();
}

}  // namespace orvane
