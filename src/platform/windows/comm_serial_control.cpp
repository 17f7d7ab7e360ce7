#include "platform/windows/comm_serial_control.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/serial_errors.h"
#include "platform/windows/comm_device.h"

namespace orvane {
namespace {

// How long Output may wait for the device. A command of 30 characters takes 31 ms.
constexpr std::chrono::milliseconds kOutputWait{200};
// How long closing may wait for the device.
constexpr std::chrono::milliseconds kDrainWait{200};

}  // namespace

CommSerialControl::CommSerialControl() : readEvent_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
  readNotifier_.setHandle(readEvent_.Get());
  QObject::connect(&readNotifier_, &QWinEventNotifier::activated, &context_,
                   [this] { ReadEnded(); });
}

CommSerialControl::~CommSerialControl() {
  Close();
}

void CommSerialControl::SetCommPort(int port) {
  if (port == port_) return;
  if (open_) throw MakeSerialError(kSerialInvalidOpenPort);
  if (port < 1 || port > kSerialMaxPort) throw MakeSerialError(kSerialInvalidPort);
  port_ = port;
}

void CommSerialControl::SetPortOpen(bool open) {
  if (open == open_) return;
  if (open) {
    Open();
  } else {
    Close();
  }
}

void CommSerialControl::Open() {
  device_ = std::make_unique<CommDevice>(port_, readEvent_.Get());
  ++session_;
  received_ = 0;
  open_ = true;
  readNotifier_.setEnabled(true);
  StartRead();
}

void CommSerialControl::Close() {
  if (!open_) return;
  open_ = false;
  readNotifier_.setEnabled(false);
  if (device_) device_->Drain(kDrainWait);
  device_.reset();
}

void CommSerialControl::Output(std::string_view bytes) {
  if (!open_) throw MakeSerialError(kSerialNoOpenPort);
  const auto written = device_ ? device_->Write(bytes, kOutputWait) : CommDevice::Written::kFailed;
  if (written == CommDevice::Written::kAll) return;
  if (written == CommDevice::Written::kFailed) Fail();
  throw MakeSerialError(kSerialDeviceError);
}

void CommSerialControl::StartRead() {
  if (!device_->StartRead()) Fail();
}

void CommSerialControl::ReadEnded() {
  if (!device_) return;
  const auto count = device_->FinishRead();
  if (!count) {
    Fail();
    return;
  }
  // Nobody ever looks at the characters; counting them keeps a talkative device from filling
  // memory.
  received_ = std::min(received_, std::numeric_limits<int>::max() - *count) + *count;
  StartRead();
  const auto handler = onReceive_;
  if (*count > 0 && handler) handler();
}

void CommSerialControl::Fail() {
  if (!device_) return;
  readNotifier_.setEnabled(false);
  device_.reset();
  const auto report = [this, session = session_] {
    if (!open_ || session != session_) return;
    const auto handler = onError_;
    if (handler) handler(MakeSerialError(kSerialDeviceError));
  };
  QMetaObject::invokeMethod(&context_, report, Qt::QueuedConnection);
}

void CommSerialControl::SetReceiveHandler(std::function<void()> handler) {
  onReceive_ = std::move(handler);
}

void CommSerialControl::SetErrorHandler(std::function<void(const SerialError&)> handler) {
  onError_ = std::move(handler);
}

}  // namespace orvane
