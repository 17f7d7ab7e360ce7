#pragma once

#include <QString>
#include <filesystem>
#include <functional>
#include <memory>

#include "host_installation.h"

namespace orvane {

// How the host's settings name a way to call.
inline constexpr int kNoDialling = 0;
inline constexpr int kDialByModem = 1;
inline constexpr int kDialByLine = 2;

// What the demo's dialer calls through, and what can be heard at its other end.
class DemoLine {
 public:
  using Listener = std::function<void(const QString&)>;

  virtual ~DemoLine() = default;
  // Sets the installation up for this line.
  virtual void Configure(HostInstallationOptions& options) const = 0;
  // Heading for what is heard.
  virtual QString Title() const = 0;
  // Gets each thing heard, as one line of text.
  virtual void Listen(Listener listener) = 0;
};

// By name: "simulated", "unset" for a simulated line that the options have yet to choose, or one
// that this system offers beside them. Files go into `folder`. What the dialer has to know beside
// the installation goes into this process's environment, which the dialer inherits. Throws
// std::runtime_error for another name and for a line that cannot be had.
std::unique_ptr<DemoLine> MakeDemoLine(const std::string& name,
                                       const std::filesystem::path& folder);

}  // namespace orvane
