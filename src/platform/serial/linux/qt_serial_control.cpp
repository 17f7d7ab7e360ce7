#include "platform/serial/linux/qt_serial_control.h"

#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cerrno>
#include <limits>
#include <utility>

#include "platform/serial/port_rules.h"
#include "platform/serial/serial_errors.h"

namespace orvane {
namespace {

// How long Output and closing may wait for the device. A command of 30 characters takes 31 ms.
constexpr int kDrainMilliseconds = 200;
constexpr int kDrainStepMilliseconds = 2;

bool MeansDeviceIsGone(QSerialPort::SerialPortError error) {
  return error != QSerialPort::NoError && error != QSerialPort::TimeoutError &&
         error != QSerialPort::UnsupportedOperationError;
}

}  // namespace

QtSerialControl::QtSerialControl(QString linkFolder) : linkFolder_(std::move(linkFolder)) {
  // The handlers run on a turn of the loop of their own, never inside the device's own work.
  QObject::connect(
      &device_, &QSerialPort::readyRead, &context_, [this] { Receive(); }, Qt::QueuedConnection);
  QObject::connect(&device_, &QSerialPort::errorOccurred, &context_,
                   [this](QSerialPort::SerialPortError error) {
                     if (open_ && !failed_ && MeansDeviceIsGone(error)) Fail();
                   });
}

QtSerialControl::~QtSerialControl() {
  Close();
}

void QtSerialControl::SetCommPort(int port) {
  port_ = ChangedCommPort(port_, port, open_);
}

void QtSerialControl::SetPortOpen(bool open) {
  if (open == open_) return;
  if (open) {
    Open();
  } else {
    Close();
  }
}

void QtSerialControl::Open() {
  const auto device = ComPortDevice(port_, linkFolder_, SerialDevices);
  // The same name for every program, whichever link it came by: locks go by name.
  const QString path = device ? QFileInfo(*device).canonicalFilePath() : QString();
  if (path.isEmpty()) throw MakeSerialError(kSerialInvalidPort);
  if (access(QFile::encodeName(path).constData(), R_OK | W_OK) != 0) {
    throw MakeSerialError(kSerialNotOpen);
  }
  device_.setPortName(path);
  device_.setBaudRate(QSerialPort::Baud9600);
  device_.setDataBits(QSerialPort::Data8);
  device_.setParity(QSerialPort::NoParity);
  device_.setStopBits(QSerialPort::OneStop);
  device_.setFlowControl(QSerialPort::NoFlowControl);
  if (!device_.open(QIODevice::ReadWrite)) {
    // The rights are there, so it is another program that refuses.
    const bool busy = device_.error() == QSerialPort::PermissionError;
    throw MakeSerialError(busy ? kSerialPortInUse : kSerialNotOpen);
  }
  LockDevice();
  ++session_;
  received_ = 0;
  failed_ = false;
  open_ = true;
}

// The administrator may open a device that another program has to itself; a lock stops him too.
void QtSerialControl::LockDevice() {
  if (flock(device_.handle(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) return;
  device_.close();
  throw MakeSerialError(kSerialPortInUse);
}

void QtSerialControl::Close() {
  if (!open_) return;
  if (!failed_) DrainBeforeClose();
  open_ = false;
  device_.close();
}

// Closing restores the line's former speed, which would garble what is still being sent.
void QtSerialControl::DrainBeforeClose() {
  int pending = 0;
  QElapsedTimer elapsed;
  elapsed.start();
  while (elapsed.elapsed() < kDrainMilliseconds &&
         ioctl(device_.handle(), TIOCOUTQ, &pending) == 0 && pending > 0) {
    poll(nullptr, 0, kDrainStepMilliseconds);
  }
}

// Writes past the toolkit's buffer: that sends only when the loop runs, and takes a device that is
// not ready for one that is gone.
void QtSerialControl::Output(std::string_view bytes) {
  if (!open_) throw MakeSerialError(kSerialNoOpenPort);
  QElapsedTimer elapsed;
  elapsed.start();
  while (!failed_ && !bytes.empty()) {
    const ssize_t written = write(device_.handle(), bytes.data(), bytes.size());
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno == EAGAIN) {
      const auto left = static_cast<int>(kDrainMilliseconds - elapsed.elapsed());
      pollfd device{device_.handle(), POLLOUT, 0};
      if (left <= 0 || poll(&device, 1, left) == 0) break;
    } else if (errno != EINTR) {
      Fail();
    }
  }
  if (failed_) throw MakeSerialError(kSerialDeviceError);
  if (bytes.empty()) return;
  // Half a command must not follow later.
  tcflush(device_.handle(), TCOFLUSH);
  throw MakeSerialError(kSerialDeviceError);
}

void QtSerialControl::Receive() {
  if (!open_ || failed_) return;
  // Nobody ever looks at the characters; counting them keeps a talkative device from filling
  // memory.
  const qint64 count = received_ + device_.readAll().size();
  const bool more = count > received_;
  received_ = static_cast<int>(std::min<qint64>(count, std::numeric_limits<int>::max()));
  const auto handler = onReceive_;
  if (more && handler) handler();
}

void QtSerialControl::Fail() {
  failed_ = true;
  const auto report = [this, session = session_] {
    if (!open_ || session != session_) return;
    // A device that hung up stays readable for ever and would keep the loop busy.
    device_.close();
    const auto handler = onError_;
    if (handler) handler(MakeSerialError(kSerialDeviceError));
  };
  QMetaObject::invokeMethod(&context_, report, Qt::QueuedConnection);
}

void QtSerialControl::SetReceiveHandler(std::function<void()> handler) {
  onReceive_ = std::move(handler);
}

void QtSerialControl::SetErrorHandler(std::function<void(const SerialError&)> handler) {
  onError_ = std::move(handler);
}

}  // namespace orvane
