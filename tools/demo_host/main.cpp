// The host's stand-in for trying the dialer out: builds an installation of its own, runs a line for
// the calls and the dialer, and hands contacts over.

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QStandardPaths>
#include <exception>
#include <filesystem>
#include <string>

#include "demo_host/demo_line.h"
#include "demo_host/demo_system.h"
#include "demo_host/demo_window.h"
#include "demo_host/dial_message.h"
#include "demo_host/dialer_link.h"
#include "host_installation.h"
#include "remote/copy_data_text.h"
#include "ui/style/application_style.h"

namespace {

using namespace orvane;

struct Arguments {
  std::filesystem::path root;
  QString dialer;
  std::string line;
  std::filesystem::path areaCodes;
  bool installOnly = false;
  int history = 0;
};

// Beside the programs where they were built or where they are installed.
QString AreaCodeFile() {
  const QDir programs(QApplication::applicationDirPath());
  const QString built = programs.filePath(QStringLiteral("../data/VPB.rgt"));
  return QFile::exists(built) ? built
                              : programs.filePath(QStringLiteral("../share/orvane/VPB.rgt"));
}

Arguments ReadArguments(const QApplication& application) {
  const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  const QCommandLineOption root(QStringLiteral("root"), QStringLiteral("Folder of the demo."),
                                QStringLiteral("folder"), data + QStringLiteral("/orvane-demo"));
  const QCommandLineOption dialer(QStringLiteral("dialer"), QStringLiteral("The dialer's program."),
                                  QStringLiteral("file"),
                                  QApplication::applicationDirPath() + QStringLiteral("/orvane"));
  const QCommandLineOption line(QStringLiteral("line"),
                                QStringLiteral("simulated, unset, modem, sip or choice."),
                                QStringLiteral("kind"), QStringLiteral("simulated"));
  const QCommandLineOption areaCodes(QStringLiteral("area-codes"),
                                     QStringLiteral("The area-code table."), QStringLiteral("file"),
                                     AreaCodeFile());
  const QCommandLineOption installOnly(QStringLiteral("install-only"),
                                       QStringLiteral("Build the installation and end."));
  const QCommandLineOption history(QStringLiteral("history"),
                                   QStringLiteral("Calls in a new journal."),
                                   QStringLiteral("count"), QStringLiteral("0"));
  QCommandLineParser parser;
  parser.addHelpOption();
  parser.addOptions({root, dialer, line, areaCodes, installOnly, history});
  parser.process(application);
  return {parser.value(root).toStdU16String(), parser.value(dialer),
          parser.value(line).toStdString(),    parser.value(areaCodes).toStdU16String(),
          parser.isSet(installOnly),           parser.value(history).toInt()};
}

// A file of lines, each there as soon as it is added.
class LogFile {
 public:
  explicit LogFile(const std::filesystem::path& file) {
    file_.setFileName(QString::fromStdString(file.string()));
    file_.open(QIODevice::WriteOnly | QIODevice::Truncate);
  }

  QString Error() const { return file_.isOpen() ? QString() : file_.errorString(); }
  void Add(const QString& line) {
    file_.write(line.toUtf8() + '\n');
    file_.flush();
  }

 private:
  QFile file_;
};

int RunDemo(const DemoFolders& folders, const HostInstallationOptions& options, DemoLine& line,
            const QString& program) {
  DemoWindow window(options.contacts, line.Title());
  LogFile heard(folders.lineLog), messages(folders.messageLog);
  for (const LogFile* log : {&heard, &messages}) {
    if (!log->Error().isEmpty()) window.AddHeard(log->Error());
  }
  line.Listen([&](const QString& text) {
    window.AddHeard(text);
    heard.Add(text);
  });

  const auto channel = NewHostChannel();
  channel->Hook(
      window.winId(), window.windowTitle().toStdString(),
      [&](const CopyData& data, const HostChannel::Handled& handled) {
        if (const auto text = CopyDataText(data)) {
          window.AddNotification(QString::fromStdString(*text));
          messages.Add(QStringLiteral("< ") + QString::fromStdString(*text));
        }
        handled();
      },
      [&window] { window.raise(); });

  DialerLink dialer(*channel, program);
  const std::string start = "TX:" + std::to_string(options.userNumber);
  bool endedWell = true;
  QObject::connect(&dialer, &DialerLink::StateChanged, &window, &DemoWindow::SetDialerState);
  QObject::connect(&window, &DemoWindow::DialRequested, &dialer, [&](std::size_t company) {
    const auto message = DialMessage(options.userNumber, options.contacts.companies[company]);
    // A dialer that was closed is started again, with the command on its command line.
    if (!dialer.IsRunning()) {
      dialer.Start(message);
    } else if (!dialer.Send(message)) {
      return;
    }
    messages.Add(QStringLiteral("> ") + QString::fromStdString(message));
  });
  QObject::connect(&window, &DemoWindow::Closing, &dialer,
                   [&] { endedWell = dialer.Close(KillMessage(options.userNumber)); });

  window.show();
  dialer.Start(start);
  const int code = QApplication::exec();
  channel->Unhook();
  return endedWell ? code : 1;
}

int Run(const Arguments& arguments) {
  const DemoFolders folders = EnterDemoSession(arguments.root);
  const auto line = MakeDemoLine(arguments.line, folders.line);
  HostInstallationOptions options;
  options.journalCalls = arguments.history;
  options.areaCodeFile = arguments.areaCodes;
  line->Configure(options);
  BuildHostInstallation(folders.host, *NewHostRegistry(), options);
  return arguments.installOnly ? 0 : RunDemo(folders, options, *line, arguments.dialer);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const ApplicationStyle style(application);
  const Arguments arguments = ReadArguments(application);
  try {
    return Run(arguments);
  } catch (const std::exception& error) {
    QMessageBox::critical(nullptr, QStringLiteral("Demo nicht möglich"),
                          QString::fromUtf8(error.what()));
    return 1;
  }
}
