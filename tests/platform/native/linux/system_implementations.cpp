#include "contract/system_implementations.h"

#include <QTemporaryDir>

#include "fakes/temporary_folder.h"
#include "platform/channel/linux/lock_file_instance.h"
#include "platform/channel/linux/socket_host_channel.h"
#include "platform/lines/linux/fake_sip_line_lab.h"
#include "platform/serial/linux/pty_rig.h"
#include "platform/settings/linux/profile_ini_file.h"
#include "platform/settings/linux/settings_registry.h"

namespace orvane {
namespace {

class SocketDesktop : public ChannelDesktop {
 public:
  SocketDesktop() {
    session_->folder = folder_ / "session";
    session_->answerWait = std::chrono::milliseconds(200);
  }
  std::unique_ptr<HostChannel> NewChannel() override {
    return std::make_unique<SocketHostChannel>(session_);
  }

 private:
  TemporaryFolder folder_;
  std::shared_ptr<SocketSession> session_ = std::make_shared<SocketSession>();
};

}  // namespace

std::unique_ptr<IniFile> NewSystemIni() {
  return std::make_unique<ProfileIniFile>();
}

RegistryFactory MakeSystemRegistries() {
  const auto folder = std::make_shared<QTemporaryDir>();
  return [folder] {
    return std::make_unique<SettingsRegistry>(folder->filePath(QStringLiteral("a/registry.ini")));
  };
}

std::unique_ptr<ChannelDesktop> MakeSystemDesktop() {
  return std::make_unique<SocketDesktop>();
}

std::unique_ptr<SerialRig> MakeSystemSerialRig() {
  return std::make_unique<PtyRig>();
}

InstanceFactory MakeSystemInstances() {
  const auto folder = std::make_shared<TemporaryFolder>();
  return [folder] { return std::make_unique<LockFileInstance>(*folder / "orvane/session-1"); };
}

std::vector<LineImplementation> SystemLines() {
  return {{"Sip", [] { return std::make_unique<FakeSipLineLab>(); }}};
}

}  // namespace orvane
