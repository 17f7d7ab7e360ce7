#include "platform/windows/native.h"

#include "platform/common/odbc_databases.h"
#include "platform/windows/command_line.h"
#include "platform/windows/system_window_chrome.h"
#include "platform/windows/tapi32_lines.h"

namespace orvane::native {

void PrepareToolkit() {}

// One word, because those that the runtime makes have lost quotes and blanks.
std::vector<std::string> CommandLineWords(int, const char* const*) {
  return {CommandLineText()};
}

std::unique_ptr<WindowChrome> MakeChrome(QWidget& window) {
  return std::make_unique<SystemWindowChrome>(window);
}

std::vector<std::unique_ptr<LineServiceProvider>> LineProviders(EventLoop& loop,
                                                                CallHandles& handles) {
  std::vector<std::unique_ptr<LineServiceProvider>> providers;
  providers.push_back(std::make_unique<Tapi32Lines>(loop, handles));
  return providers;
}

DatabaseEngines Databases(LongWork& work, const DriverThreads& threads) {
  const auto files = std::make_shared<OdbcDatabases>(JetFileAccess(), work, threads);
  const auto server = std::make_shared<OdbcDatabases>(SqlServerAccess(), work, threads);
  return {[files](const ConnectionProperties& properties) { return files->Open(properties); },
          [server](const ConnectionProperties& properties) { return server->Open(properties); }};
}

}  // namespace orvane::native
