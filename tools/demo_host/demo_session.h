#pragma once

#include <filesystem>

namespace orvane {

// The folders of one demo, all below its root.
struct DemoFolders {
  std::filesystem::path config;
  std::filesystem::path runtime;
  std::filesystem::path host;
  // Files of what the calls go through, and what was heard there.
  std::filesystem::path line;
  std::filesystem::path lineLog;
};

// Creates the folders and points this process and those it starts to them, so that the demo shares
// neither settings nor messages with a dialer that the user has installed. Call it when the
// application object exists, which still sees the desktop's own settings. Throws
// std::filesystem::filesystem_error.
DemoFolders EnterDemoSession(const std::filesystem::path& root);

}  // namespace orvane
