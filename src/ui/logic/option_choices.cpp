#include "ui/logic/option_choices.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "app/attempt.h"
#include "app/host_paths.h"
#include "app/host_settings.h"
#include "platform/errors.h"
#include "platform/text/file_replacement.h"
#include "remote/senders.h"

namespace orvane {
namespace {

// Registry values that are all written or, when one fails, put back.
class RegistryChanges {
 public:
  explicit RegistryChanges(HostRegistry& registry) : registry_(registry) {}
  ~RegistryChanges() {
    for (const Former& former : former_) PutBack(former);
  }
  RegistryChanges(const RegistryChanges&) = delete;
  RegistryChanges& operator=(const RegistryChanges&) = delete;

  template <typename Setting>
  void Write(const Setting& setting, const std::string& value) {
    former_.push_back({setting.section, setting.name, Stored(registry_, setting)});
    Store(registry_, setting, value);
  }
  void Keep() { former_.clear(); }

 private:
  struct Former {
    std::string_view section;
    std::string_view name;
    // Nothing for a value that did not exist.
    std::optional<std::string> value;
  };

  void PutBack(const Former& former) {
    // The registry refused a value just now; the others may still go in.
    Attempt([&] {
      if (former.value) {
        registry_.Write(former.section, former.name, *former.value);
      } else {
        registry_.Remove(former.section, former.name);
      }
    });
  }

  HostRegistry& registry_;
  std::vector<Former> former_;
};

void WriteChoices(RegistryChanges& registry, const OptionChoices& choices) {
  registry.Write(setting::kTestNumber, choices.testNumber);
  registry.Write(setting::kTestTarget, std::to_string(choices.testTarget));
  registry.Write(setting::kDialMethod, std::to_string(choices.dialMethod));
  registry.Write(setting::kOutsideLineInt, choices.outsideLineInt);
  registry.Write(setting::kOutsideLineExt, choices.outsideLineExt);
  registry.Write(setting::kComPort, std::to_string(choices.comPort));
  registry.Write(setting::kLineName, choices.lineName);
}

std::string HostNotification(const OptionChoices& choices) {
  return "TAPI_ReInit~" + (choices.callMonitor ? choices.lineName : std::string("|"));
}

}  // namespace

OptionChoices CurrentChoices(const ProgramState& state, Prompts& prompts) {
  const auto read = [&](const auto& setting) {
    return ReadHostSetting(state.host, prompts, setting);
  };
  const DialSettings& settings = state.settings;
  OptionChoices choices;
  choices.callMonitor = read(setting::kCallMonitor) != 0;
  choices.testNumber = read(setting::kTestNumber);
  choices.testTarget = read(setting::kTestTarget) == kTestExternal ? kTestExternal : kTestInternal;
  choices.dialMethod = std::min(settings.dialMethod, kDialMethodTapi);
  choices.outsideLineInt = settings.outsideLineInt;
  choices.outsideLineExt = settings.outsideLineExt;
  choices.comPort = settings.comPortNumber;
  choices.lineName = settings.tapiLineName;
  return choices;
}

void SaveTestNumber(HostEnvironment& host, const std::string& number, int target) {
  HostRegistry& registry = RegistryOf(host);
  Store(registry, setting::kTestNumber, number);
  Store(registry, setting::kTestTarget, std::to_string(target));
}

void ApplyOptions(HostChannel& channel, ProgramState& state, const OptionChoices& choices,
                  const ApplyContext& context) {
  HostRegistry& registry = RegistryOf(state.host);
  std::unique_ptr<FileReplacement> file;
  if (context.speedDial) {
    file = ReplaceSpeedDialFile(context.userPath, *context.speedDial);
  }
  RegistryChanges changes(registry);
  WriteChoices(changes, choices);
  if (file) file->Commit();
  changes.Keep();
  if (choices.dialMethod != kDialMethodTapi) state.settings.tapiLineId = kNoTapiLine;
  context.reloadSettings();
  const auto notifyHost = [&] {
    SendToHost(channel, state.host.userNumber, HostNotification(choices));
  };
  try {
    if (choices.callMonitor != context.callMonitorBefore) {
      Store(registry, setting::kCallMonitor, choices.callMonitor ? "1" : "0");
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
