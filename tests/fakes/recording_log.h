#pragma once

#include <string>
#include <vector>

#include "platform/support_log.h"

namespace orvane {

// Keeps what the support log was told, with everything in the open.
class RecordingLog : public SupportLog {
 public:
  bool Listening() const override { return true; }
  void Tell(LogTopic /*topic*/, std::initializer_list<LogPart> parts) override {
    std::string& line = lines.emplace_back();
    for (const LogPart& part : parts) line += part.text;
  }

  std::vector<std::string> lines;
};

}  // namespace orvane
