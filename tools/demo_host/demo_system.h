#pragma once

#include <QProcess>
#include <filesystem>
#include <memory>
#include <string>

#include "platform/host_channel.h"
#include "platform/host_registry.h"

namespace orvane {

class DemoLine;

// The folders of one demo, all below its root.
struct DemoFolders {
  std::filesystem::path host;
  // Files of what the calls go through, and what was heard there.
  std::filesystem::path line;
  std::filesystem::path lineLog;
  // What the host and the dialer told each other.
  std::filesystem::path messageLog;
};

// Creates the folders and keeps the demo apart from a dialer that the user has installed: the demo
// must not change that one's settings. Call it when the application object exists, which still sees
// the desktop's own settings. Throws std::runtime_error, also where the two cannot be kept apart.
DemoFolders EnterDemoSession(const std::filesystem::path& root);

std::unique_ptr<HostRegistry> NewHostRegistry();
std::unique_ptr<HostChannel> NewHostChannel();

// The lines that this system offers beside the simulated one; nothing for another name.
std::unique_ptr<DemoLine> MakeSystemDemoLine(const std::string& name,
                                             const std::filesystem::path& folder);

// Sets the process up to start the dialer as the host does: the text is its whole command line.
void SetCommandLine(QProcess& process, const QString& text);

}  // namespace orvane
