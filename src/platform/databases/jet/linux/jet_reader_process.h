#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

struct JetReaderLimits {
  std::chrono::milliseconds time{20'000};
  std::size_t bytes = std::size_t{1} << 29;  // of what it writes
};

enum class JetReaderEnd {
  kEnded,      // by itself or by the system; only its output says whether all was well
  kFailed,     // its output was refused or could not be read
  kOverLimit,  // killed from here, for time or bytes
  kNotStarted
};

// Runs the program that reads Jet files, with the file as its standard input, and hands on what it
// writes. A sink that says false ends it. Whatever the file does to it, this returns within the
// time.
JetReaderEnd RunJetReader(const std::filesystem::path& program, int file,
                          const std::vector<std::string>& names, const JetReaderLimits& limits,
                          const std::function<bool(std::string_view)>& sink);

}  // namespace orvane
