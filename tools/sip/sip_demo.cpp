#include "sip/sip_demo.h"

#include <chrono>
#include <fstream>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

#include "sip/loopback_port.h"

namespace orvane {
namespace {

constexpr std::chrono::seconds kLongestStart{10};
constexpr std::chrono::milliseconds kGlance{10};
// Other programs on this machine may be quicker to take a port.
constexpr int kAttempts = 5;

const std::filesystem::path kScenarios{ORVANE_SIP_SCENARIOS};

void WaitUntilReachable(SpawnedProgram& program, const std::string& name, int socketType,
                        std::uint16_t port) {
  const auto deadline = std::chrono::steady_clock::now() + kLongestStart;
  while (!IsTaken(socketType, port)) {
    if (!program.Running()) throw std::runtime_error(name + " does not run; is it installed?");
    if (std::chrono::steady_clock::now() > deadline) {
      throw std::runtime_error(name + " does not come up");
    }
    std::this_thread::sleep_for(kGlance);
  }
}

std::string Loopback(std::uint16_t port) {
  return "127.0.0.1:" + std::to_string(port);
}

std::vector<std::string> Sipp(const std::string& scenario, std::uint16_t port) {
  return {"sipp",
          "-sf",
          (kScenarios / scenario).string(),
          "-i",
          "127.0.0.1",
          "-p",
          std::to_string(port),
          "-mp",
          std::to_string(FreePort()),
          "-nostdin"};
}

}  // namespace

SipDemo::SipDemo(const std::filesystem::path& folder) : folder_(std::filesystem::absolute(folder)) {
  std::filesystem::create_directories(folder_);
  for (int attempt = 1; !telephone_; ++attempt) {
    try {
      Start();
    } catch (const std::runtime_error&) {
      if (attempt == kAttempts) throw;
    }
  }
}

void SipDemo::Start() {
  controlPort_ = FreePort();
  telephonePort_ = FreePort();
  farEndPort_ = FreePort();
  WriteTelephoneFiles();
  StartFarEnd();
  StartTelephone();
}

void SipDemo::StopTelephone() {
  telephone_.reset();
}

void SipDemo::StartTelephone() {
  auto telephone =
      std::make_unique<SpawnedProgram>(std::vector<std::string>{"baresip", "-f", folder_.string()},
                                       folder_, folder_ / "baresip.log");
  WaitUntilReachable(*telephone, "baresip", SOCK_STREAM, controlPort_);
  telephone_ = std::move(telephone);
}

void SipDemo::CallBert() {
  std::vector<std::string> words = Sipp("caller.xml", FreePort());
  for (const std::string& word : {std::string("-s"), std::string("bert"), std::string("-m"),
                                  std::string("1"), Loopback(telephonePort_)}) {
    words.push_back(word);
  }
  caller_ = std::make_unique<SpawnedProgram>(std::move(words), folder_, folder_ / "caller.out");
}

std::string SipDemo::Account(const std::string& user) const {
  return "sip:" + user + "@" + Loopback(farEndPort_);
}

std::filesystem::path SipDemo::FarEndLog() const {
  return folder_ / "far_end.log";
}

void SipDemo::StartFarEnd() {
  std::vector<std::string> words = Sipp("far_end.xml", farEndPort_);
  for (const std::string& word :
       {std::string("-trace_msg"), std::string("-message_file"), FarEndLog().string()}) {
    words.push_back(word);
  }
  farEnd_ = std::make_unique<SpawnedProgram>(std::move(words), folder_, "/dev/null");
  WaitUntilReachable(*farEnd_, "sipp", SOCK_DGRAM, farEndPort_);
}

// Sound goes in a circle: what comes in is what goes out, so no sound card is needed.
void SipDemo::WriteTelephoneFiles() const {
  std::ofstream(folder_ / "config") << "poll_method epoll\n"
                                    << "sip_listen " << Loopback(telephonePort_) << "\n"
                                    << "audio_player aubridge,none\n"
                                    << "audio_source aubridge,none\n"
                                    << "audio_alert aubridge,none\n"
                                    << "module_path /usr/lib/baresip/modules\n"
                                    << "module g711.so\n"
                                    << "module aubridge.so\n"
                                    << "module ctrl_tcp.so\n"
                                    << "module_tmp account.so\n"
                                    << "module_app menu.so\n"
                                    << "ctrl_tcp_listen " << Loopback(controlPort_) << "\n";
  std::ofstream(folder_ / "accounts") << "<" << Account("anna") << ">;regint=0\n"
                                      << "<" << Account("bert") << ">;regint=0;answermode=auto\n";
}

}  // namespace orvane
