#include "platform/serial/windows/comm_serial_control.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/serial/port_rules.h"
#include "platform/serial/serial_errors.h"
#include "platform/serial/windows/comm_device.h"

namespace orvane {
namespace {

// At 9600 baud a character takes a little more than a millisecond.
constexpr std::size_t kMsPerCharacter = 2;
// What the device itself may take before and behind a text.
constexpr std::chrono::milliseconds kDeviceWait{200};

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
  port_ = ChangedCommPort(port_, port, open_);
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
  device_.reset();
}

void CommSerialControl::Output(std::string_view bytes) {
  if (!open_) throw MakeSerialError(kSerialNoOpenPort);
  const auto limit = kDeviceWait + std::chrono::milliseconds(bytes.size() * kMsPerCharacter);
  const auto written = device_ ? device_->Write(bytes, limit) : CommDevice::Written::kFailed;
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
