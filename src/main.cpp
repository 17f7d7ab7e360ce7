// Puts the program together; the only place that picks implementations of the system's interfaces.
#include <QApplication>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QTranslator>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "app/host_helper.h"
#include "app/program_state.h"
#include "app/services.h"
#include "app/startup.h"
#include "app/work_queue.h"
#include "journal/current_call.h"
#include "platform/common/qt_event_loop.h"
#include "platform/common/qt_locale_format.h"
#include "platform/common/qt_prompts.h"
#include "platform/common/qt_window_chrome.h"
#include "platform/common/simulated_lines.h"
#include "platform/common/sqlite_services.h"
#include "platform/common/system_clock.h"
#include "platform/common/tapi_lines.h"
#include "platform/linux/com_ports.h"
#include "platform/linux/compositor.h"
#include "platform/linux/lock_file_instance.h"
#include "platform/linux/profile_ini_file.h"
#include "platform/linux/qt_serial_control.h"
#include "platform/linux/settings_registry.h"
#include "platform/linux/sip_lines.h"
#include "platform/linux/socket_host_channel.h"
#include "remote/senders.h"
#include "ui/dial/frm_dial.h"
#include "ui/style/application_style.h"

namespace {

// The compositor of a Wayland desktop places windows as it likes; the dial window has a place.
void ChoosePlatform() {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && !qEnvironmentVariableIsEmpty("DISPLAY")) {
    qputenv("QT_QPA_PLATFORM", "xcb");
  }
}

// The simulated lines are for demonstrations: whoever wants them says so before the start.
std::vector<std::unique_ptr<orvane::LineServiceProvider>> LineProviders(
    orvane::EventLoop& loop, orvane::CallHandles& handles) {
  std::vector<std::unique_ptr<orvane::LineServiceProvider>> providers;
  if (qEnvironmentVariableIntValue("ORVANE_SIMULATED_LINES") > 0) {
    providers.push_back(
        std::make_unique<orvane::SimulatedLines>(loop, handles, orvane::SimulatedLines::Times{}));
  }
  // The last one, because it may find more lines later.
  orvane::BaresipControl::Settings baresip;
  const int port = qEnvironmentVariableIntValue("ORVANE_BARESIP_PORT");
  if (port > 0 && port <= std::numeric_limits<std::uint16_t>::max()) {
    baresip.port = static_cast<std::uint16_t>(port);
  }
  providers.push_back(std::make_unique<orvane::SipLines>(loop, handles, baresip));
  return providers;
}

// The toolkit's own texts, such as the number field's context menu.
void SpeakGerman(QApplication& application, QTranslator& translator) {
  if (translator.load(QStringLiteral("qtbase_de"),
                      QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    application.installTranslator(&translator);
  }
}

int Run(const std::string& commandLine) {
  using namespace orvane;
  QtPrompts screen;
  HostHelper messages(screen);
  HostHelper dialogMessages(screen);
  ProfileIniFile ini;
  SqliteServices databases;
  QtSerialControl serial;
  SocketHostChannel channel;
  LockFileInstance instance;
  QtEventLoop loop;
  CallHandles callHandles;
  TapiLines tapi{LineProviders(loop, callHandles)};
  SystemClock clock;
  QtLocaleFormat locale;
  Services services{[] { return std::make_unique<SettingsRegistry>(); },
                    ini,
                    databases,
                    serial,
                    tapi,
                    channel,
                    instance,
                    loop,
                    clock,
                    locale,
                    messages,
                    SerialPortNames};
  ProgramState state;
  CurrentCall call;
  WorkQueue queue;
  frmDial window(services, state, call, queue, [](QWidget& widget) {
    return std::make_unique<QtWindowChrome>(widget, DesktopComposes);
  });

  StartupOutcome outcome = StartupOutcome::kRefused;
  queue.Submit([&] {
    outcome = RunStartup(
        services, state, messages, dialogMessages,
        QFileInfo(QApplication::applicationFilePath()).absolutePath().toStdString(), commandLine,
        {[&](const std::string& text) { SendToRunningInstance(channel, text); },
         [&] { window.Channel().ExecuteCommands(); }});
  });
  // Without a window nothing would ever end the program.
  if (outcome != StartupOutcome::kRunning || !window.IsLoaded()) return 0;
  return loop.Run();
}

}  // namespace

int main(int argc, char** argv) {
  ChoosePlatform();
  const std::vector<std::string> words(argv + 1, argv + argc);
  // The command line is the host's; the toolkit must not take words out of it.
  int ownName = 1;
  QApplication application(ownName, argv);
  QApplication::setApplicationName(QStringLiteral("Orvane"));
  QApplication::setQuitOnLastWindowClosed(false);
  QTranslator translator;
  SpeakGerman(application, translator);
  const orvane::ApplicationStyle style(application);
  return Run(orvane::JoinCommandLine(words));
}
