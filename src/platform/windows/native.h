#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/common/driver_threads.h"
#include "platform/common/host_databases.h"
#include "platform/common/long_work.h"
#include "platform/event_loop.h"
#include "platform/line_service_provider.h"
#include "platform/window_chrome.h"
#include "platform/windows/com_ports.h"
#include "platform/windows/comm_serial_control.h"
#include "platform/windows/message_host_channel.h"
#include "platform/windows/mutex_instance.h"
#include "platform/windows/system_ini_file.h"
#include "platform/windows/system_registry.h"

class QWidget;

// What a program is made of on this system; every system has these names.
namespace orvane::native {

using Registry = SystemRegistry;
using Ini = SystemIniFile;
using Serial = CommSerialControl;
using Channel = MessageHostChannel;
using Instance = MutexInstance;

// To be called before the application object is made.
void PrepareToolkit();

// What stands behind the program's name on the command line, in UTF-8: joined by blanks, the words
// are the line.
std::vector<std::string> CommandLineWords(int argc, const char* const* argv);

// The widget outlives its chrome.
std::unique_ptr<WindowChrome> MakeChrome(QWidget& window);

// The sources of this machine's telephone lines.
std::vector<std::unique_ptr<LineServiceProvider>> LineProviders(EventLoop& loop,
                                                                CallHandles& handles);

// What opens databases that SQLite does not keep; `work` outlives it.
DatabaseEngines Databases(LongWork& work, const DriverThreads& threads);

}  // namespace orvane::native
