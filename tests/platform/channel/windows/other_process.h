#pragma once

#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>
#include <string>

#include "contract/event_wait.h"

namespace orvane {

// What this process is told, when it is another process's helper.
inline std::string OwnTask() {
  return qEnvironmentVariable("ORVANE_TEST_TASK").toStdString();
}

// A second copy of this test program that runs one disabled test, which plays the other side; ended
// when the object dies.
class OtherProcess {
 public:
  // `task` is what OwnTask gives there.
  explicit OtherProcess(const std::string& test, const std::string& task = {}) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("ORVANE_TEST_TASK"), QString::fromStdString(task));
    process_.setProcessEnvironment(environment);
    process_.setProcessChannelMode(QProcess::MergedChannels);
    process_.start(QCoreApplication::applicationFilePath(),
                   {QStringLiteral("--gtest_also_run_disabled_tests"),
                    QStringLiteral("--gtest_filter=") + QString::fromStdString(test)});
  }
  ~OtherProcess() { Kill(); }
  OtherProcess(const OtherProcess&) = delete;
  OtherProcess& operator=(const OtherProcess&) = delete;

  // Waits until it has printed that line; events run meanwhile.
  bool Said(const std::string& line) {
    return RunUntil([&] {
      said_ += process_.readAll().replace("\r\n", "\n");
      return said_.contains(QByteArray::fromStdString(line + "\n"));
    });
  }
  bool Ended() {
    return RunUntil([this] { return process_.state() == QProcess::NotRunning; });
  }
  void Kill() {
    process_.kill();
    process_.waitForFinished();
  }

 private:
  QProcess process_;
  QByteArray said_;
};

// Tells the process that started this one.
inline void Say(const std::string& line) {
  std::puts(line.c_str());
  std::fflush(stdout);
}

}  // namespace orvane
