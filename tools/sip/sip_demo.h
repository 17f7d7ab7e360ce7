#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "sip/spawned_program.h"

namespace orvane {

// A telephone for demonstrations and tests, without sound: baresip with the accounts "anna" and
// "bert", whose calls all reach a SIPp that plays the far end (see far_end.xml for the numbers).
// Everything stays on the loopback interface, on ports of its own. Calls to "bert" are answered at
// once, as if somebody took them at the telephone.
class SipDemo {
 public:
  // Starts both and waits until they can be reached; their files go into `folder`. Throws
  // std::runtime_error when one is not installed or does not come up.
  explicit SipDemo(const std::filesystem::path& folder);

  // baresip alone; it comes back on the same ports.
  void StopTelephone();
  void StartTelephone();

  // A call from outside to "bert", which lasts until it is hung up there.
  void CallBert();

  std::uint16_t ControlPort() const { return controlPort_; }
  // "sip:anna@..." for example.
  std::string Account(const std::string& user) const;
  // All SIP messages as the far end sees them.
  std::filesystem::path FarEndLog() const;

 private:
  void Start();
  void StartFarEnd();
  void WriteTelephoneFiles() const;

  std::filesystem::path folder_;
  std::uint16_t controlPort_ = 0;
  std::uint16_t telephonePort_ = 0;
  std::uint16_t farEndPort_ = 0;
  std::unique_ptr<SpawnedProgram> farEnd_;
  std::unique_ptr<SpawnedProgram> telephone_;
  std::unique_ptr<SpawnedProgram> caller_;
};

}  // namespace orvane
