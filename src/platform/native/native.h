#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/databases/driver_threads.h"
#include "platform/databases/host_databases.h"
#include "platform/databases/long_work.h"
#include "platform/end_requests.h"
#include "platform/event_loop.h"
#include "platform/folder_locks.h"
#include "platform/host_channel.h"
#include "platform/host_registry.h"
#include "platform/ini_file.h"
#include "platform/lines/line_service_provider.h"
#include "platform/serial_control.h"
#include "platform/single_instance.h"
#include "platform/window_chrome.h"

class QWidget;

// What a program is made of on the system that it is built for.
namespace orvane::native {

// To be called before the application object is made.
void PrepareToolkit();

// What stands behind the program's name on the command line, in UTF-8: joined by blanks, the words
// are the line.
std::vector<std::string> CommandLineWords(int argc, const char* const* argv);

std::unique_ptr<HostRegistry> MakeRegistry();
std::unique_ptr<IniFile> MakeIni();
std::unique_ptr<HostChannel> MakeChannel();
std::unique_ptr<SingleInstance> MakeInstance();

std::unique_ptr<SerialControl> MakeSerial();
// The system's list of serial ports, as SerialPortLister.
std::vector<std::string> ListSerialPorts();

std::unique_ptr<FolderLocks> MakeFolderLocks();

// For the time that the application object lives.
std::unique_ptr<EndRequests> MakeEndRequests();

// The widget outlives its chrome.
std::unique_ptr<WindowChrome> MakeChrome(QWidget& window);

// The sources of this machine's telephone lines.
std::vector<std::unique_ptr<LineServiceProvider>> LineProviders(EventLoop& loop,
                                                                CallHandles& handles);

// What opens databases that SQLite does not keep; `work` outlives it.
DatabaseEngines Databases(LongWork& work, const DriverThreads& threads);

}  // namespace orvane::native
