// Puts the program together; the only place that picks implementations of the system's interfaces.
#include <QApplication>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QStandardPaths>
#include <QSysInfo>
#include <QTranslator>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "app/attempt.h"
#include "app/host_helper.h"
#include "app/host_paths.h"
#include "app/host_settings.h"
#include "app/program_state.h"
#include "app/startup.h"
#include "app/version.h"
#include "app/work_queue.h"
#include "journal/tel_list.h"
#include "platform/databases/driver_threads.h"
#include "platform/databases/host_databases.h"
#include "platform/databases/qt_long_work.h"
#include "platform/desktop/qt_background.h"
#include "platform/desktop/qt_event_loop.h"
#include "platform/desktop/qt_locale_format.h"
#include "platform/desktop/qt_prompts.h"
#include "platform/desktop/system_clock.h"
#include "platform/lines/simulated_lines.h"
#include "platform/lines/tapi_lines.h"
#include "platform/native/native.h"
#include "platform/support/logged_system.h"
#include "platform/support/support_log_file.h"
#include "remote/senders.h"
#include "ui/dial/frm_dial.h"
#include "ui/style/application_style.h"

namespace {

constexpr std::chrono::milliseconds kDriverFarewell{500};

// The simulated lines are for demonstrations: whoever wants them says so before the start. The
// machine's come last, because there may be more of them later.
std::vector<std::unique_ptr<orvane::LineServiceProvider>> LineProviders(
    orvane::EventLoop& loop, orvane::CallHandles& handles) {
  auto providers = orvane::native::LineProviders(loop, handles);
  if (qEnvironmentVariableIntValue("ORVANE_SIMULATED_LINES") > 0) {
    providers.insert(providers.begin(), std::make_unique<orvane::SimulatedLines>(
                                            loop, handles, orvane::SimulatedLines::Times{}));
  }
  return providers;
}

// The toolkit's own texts, such as the number field's context menu.
void SpeakGerman(QApplication& application, QTranslator& translator) {
  if (translator.load(QStringLiteral("qtbase_de"),
                      QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    application.installTranslator(&translator);
  }
}

// Null while it is off, as by default and when the registry cannot be read.
std::unique_ptr<orvane::SupportLogFile> MakeSupportLog(const std::string& commandLine,
                                                       const orvane::Clock& clock) {
  using namespace orvane;
  bool on = false;
  bool open = false;
  Attempt([&] {
    const auto registry = native::MakeRegistry();
    BindHostRegistry(*registry);
    on = IsOn(*registry, setting::kSupportLog);
    open = IsOn(*registry, setting::kSupportLogOpen);
  });
  if (!on) return nullptr;
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  return std::make_unique<SupportLogFile>(
      std::filesystem::path((folder + QStringLiteral("/Orvane")).toStdU16String()),
      std::initializer_list<LogPart>{"Orvane ",
                                     ProgramVersion(),
                                     ", ",
                                     QSysInfo::prettyProductName().toStdString(),
                                     " (",
                                     QSysInfo::currentCpuArchitecture().toStdString(),
                                     "), Qt ",
                                     qVersion(),
                                     ", gestartet mit ",
                                     {LogPart::Kind::kMessage, commandLine}},
      !open, clock, SupportLogFile::Limits{});
}

int Run(const std::string& commandLine, const orvane::DriverThreads& driverThreads) {
  using namespace orvane;
  SystemClock clock;
  NoSupportLog nobody;
  const auto logFile = MakeSupportLog(commandLine, clock);
  SupportLog& log = logFile ? static_cast<SupportLog&>(*logFile) : nobody;
  LoggedSystem logged(log);
  QtPrompts screen;
  Prompts& prompts = logged.Told(screen);
  HostHelper messages(prompts);
  HostHelper dialogMessages(prompts);
  const auto ini = native::MakeIni();
  QtLongWork longWork;
  HostDatabases databases{native::Databases(longWork, driverThreads)};
  const auto serial = native::MakeSerial();
  const auto plainChannel = native::MakeChannel();
  HostChannel& channel = logged.Told(*plainChannel);
  const auto instance = native::MakeInstance();
  QtEventLoop loop;
  CallHandles callHandles;
  TapiLines tapi{LineProviders(loop, callHandles)};
  QtLocaleFormat locale;
  ProgramState state;
  WorkQueue queue;
  QtBackground background;
  // An engine is used by one thread; here nobody has to paint while it works.
  ImmediateWork journalWork;
  HostDatabases journalDatabases{native::Databases(journalWork, driverThreads)};
  const auto folderLocks = native::MakeFolderLocks();
  TelList journal(logged.ToldOfJournal(journalDatabases), *folderLocks, background, prompts, queue,
                  log);
  const DialSystem system{{logged.Told(tapi), logged.Told(*serial), native::ListSerialPorts,
                           channel, loop, clock, locale, messages, native::MakeChrome},
                          native::MakeRegistry,
                          *ini,
                          logged.Told(databases),
                          background,
                          log};
  frmDial window(system, state, queue, journal);

  const auto endRequests = native::MakeEndRequests();
  endRequests->SetHandler([&](EndRequests::When when) {
    log.Tell(LogTopic::kProgram, {"das System beendet das Programm"});
    if (when == EndRequests::When::kAtOnce && queue.Busy()) {
      // What is in the middle of its work can be waited for no longer.
      window.Unload();
      std::_Exit(0);
    }
    screen.Dismiss();
    queue.Submit([&] { window.Unload(); });
  });

  StartupOutcome outcome = StartupOutcome::kRefused;
  queue.Submit([&] {
    outcome = RunStartup(
        native::MakeRegistry, *instance, state, messages, dialogMessages,
        QFileInfo(QApplication::applicationFilePath()).absolutePath().toStdString(), commandLine,
        {[&](const std::string& text) { SendToRunningInstance(channel, text); },
         [&] {
           if (logFile) logFile->Begin();
         },
         [&] { window.Channel().ExecuteCommands(); }});
  });
  // Without a window nothing would ever end the program.
  const bool runs = outcome == StartupOutcome::kRunning && window.IsLoaded();
  const int result = runs ? loop.Run() : 0;
  log.Tell(LogTopic::kProgram, {runs ? "Ende" : "Ende ohne Fenster"});
  // A network folder that is silent to the end: nothing must be cleaned up under its feet.
  if (!background.Finish(std::chrono::milliseconds(0))) std::_Exit(result);
  return result;
}

}  // namespace

int main(int argc, char** argv) {
  orvane::native::PrepareToolkit();
  const auto words = orvane::native::CommandLineWords(argc, argv);
  // The command line is the host's; the toolkit must not take words out of it.
  int ownName = 1;
  QApplication application(ownName, argv);
  QApplication::setApplicationName(QStringLiteral("Orvane"));
  QApplication::setQuitOnLastWindowClosed(false);
  QTranslator translator;
  SpeakGerman(application, translator);
  const orvane::ApplicationStyle style(application);
  const orvane::DriverThreads driverThreads;
  const int result = Run(orvane::JoinCommandLine(words), driverThreads);
  // A server that is silent to the end: its driver must not be cleaned up under its feet.
  if (!driverThreads.AllEnded(kDriverFarewell)) std::_Exit(result);
  return result;
}
