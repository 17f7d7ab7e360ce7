#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "platform/clock.h"
#include "platform/support_log.h"

namespace orvane {

// The support log in a file, "Orvane.log" in a folder of the user's; when it is full it becomes
// "Orvane.1.log", and so on. Written by a thread of its own. A disk that is full and a folder that
// cannot be written to end the log without a word.
class SupportLogFile : public SupportLog {
 public:
  struct Limits {
    std::uintmax_t bytes = 1'000'000;
    // Full files that are kept.
    int kept = 3;
  };

  // `header` begins each file and each run of the program, with the moment of this call; `masked`:
  // without numbers and names. The clock outlives the log.
  SupportLogFile(std::filesystem::path folder, std::initializer_list<LogPart> header, bool masked,
                 const Clock& clock, Limits limits);
  // Begins to write; what was told before is kept until then. A program that ends without it leaves
  // no trace: it may only have been a messenger of one that writes into the same file.
  void Begin();
  // Waits for what was told, but not long for a disk that does not answer.
  ~SupportLogFile() override;
  SupportLogFile(const SupportLogFile&) = delete;
  SupportLogFile& operator=(const SupportLogFile&) = delete;

  bool Listening() const override;
  void Tell(LogTopic topic, std::initializer_list<LogPart> parts) override;

 private:
  class Writer;

  std::string Line(std::initializer_list<LogPart> parts) const;

  bool masked_;
  const Clock& clock_;
  // Shared with its thread, which may outlive the log.
  std::shared_ptr<Writer> writer_;
};

}  // namespace orvane
