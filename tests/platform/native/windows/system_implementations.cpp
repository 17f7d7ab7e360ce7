#include "contract/system_implementations.h"

#include "platform/channel/windows/message_host_channel.h"
#include "platform/channel/windows/mutex_instance.h"
#include "platform/channel/windows/native_window.h"
#include "platform/lines/windows/scripted_tapi_lab.h"
#include "platform/serial/windows/cable_rig.h"
#include "platform/settings/windows/registry_sandbox.h"
#include "platform/settings/windows/system_ini_file.h"
#include "platform/settings/windows/system_registry.h"

namespace orvane {
namespace {

class MessageDesktop : public ChannelDesktop {
 public:
  std::unique_ptr<HostChannel> NewChannel() override {
    return std::make_unique<MessageHostChannel>();
  }
  std::unique_ptr<TestWindow> NewWindow(const std::string& caption) override {
    auto window = std::make_unique<NativeWindow>(caption);
    window->Show();
    return window;
  }
  bool HasOwnMessages() const override { return false; }
};

}  // namespace

std::unique_ptr<IniFile> NewSystemIni() {
  return std::make_unique<SystemIniFile>();
}

RegistryFactory MakeSystemRegistries() {
  const auto sandbox = std::make_shared<RegistrySandbox>();
  return [sandbox] { return std::make_unique<SystemRegistry>(); };
}

std::unique_ptr<ChannelDesktop> MakeSystemDesktop() {
  return std::make_unique<MessageDesktop>();
}

std::unique_ptr<SerialRig> MakeSystemSerialRig() {
  if (qEnvironmentVariableIsEmpty("ORVANE_SERIAL_CABLE")) return nullptr;
  return std::make_unique<CableRig>();
}

InstanceFactory MakeSystemInstances() {
  const std::string name = "Orvane.Test." + std::to_string(GetCurrentProcessId());
  return [name] { return std::make_unique<MutexInstance>(name); };
}

// The lines of a driver that does all by the book, and of one that does nothing so.
std::vector<LineImplementation> SystemLines() {
  return {{"Tapi", [] { return std::make_unique<ScriptedTapiLab>(); }},
          {"OddTapi", [] {
             return std::make_unique<ScriptedTapiLab>(ScriptedTapi::Manner{true, true, true});
           }}};
}

}  // namespace orvane
