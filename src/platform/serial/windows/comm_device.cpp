#include "platform/serial/windows/comm_device.h"

#include <string>
#include <utility>

#include "platform/serial/serial_errors.h"
#include "platform/serial_control.h"

namespace orvane {
namespace {

constexpr BYTE kDataBits = 8;
// Between two characters of one text there is one millisecond.
constexpr DWORD kPauseMs = 5;
constexpr DWORD kReadBytes = 256;
// How long a driver may take to let go.
constexpr DWORD kCancelWaitMs = 500;

std::int32_t SerialErrorFor(DWORD code) {
  switch (code) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
      return kSerialInvalidPort;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_BUSY:
      return kSerialPortInUse;
    default:
      return kSerialNotOpen;
  }
}

SystemHandle OpenPort(int port) {
  // The long form, because the short one ends at COM9.
  const std::wstring name = L"\\\\.\\COM" + std::to_wstring(port);
  SystemHandle file(CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr));
  if (!file.Valid()) throw MakeSerialError(SerialErrorFor(GetLastError()));
  return file;
}

bool SetLineParameters(HANDLE file) {
  DCB settings{};
  settings.DCBlength = sizeof settings;
  if (GetCommState(file, &settings) == 0) return false;
  settings.BaudRate = CBR_9600;
  settings.ByteSize = kDataBits;
  settings.Parity = NOPARITY;
  settings.StopBits = ONESTOPBIT;
  settings.fBinary = TRUE;
  settings.fParity = FALSE;
  settings.fOutxCtsFlow = FALSE;
  settings.fOutxDsrFlow = FALSE;
  settings.fOutX = FALSE;
  settings.fInX = FALSE;
  settings.fNull = FALSE;
  settings.fErrorChar = FALSE;
  settings.fDsrSensitivity = FALSE;
  settings.fAbortOnError = FALSE;
  // A modem answers only to a terminal that says it is there.
  settings.fDtrControl = DTR_CONTROL_ENABLE;
  settings.fRtsControl = RTS_CONTROL_ENABLE;
  return SetCommState(file, &settings) != 0;
}

// A read waits for the first character, however long, and ends with the first pause behind one.
bool SetReadToWait(HANDLE file) {
  COMMTIMEOUTS timeouts{};
  timeouts.ReadIntervalTimeout = kPauseMs;
  return SetCommTimeouts(file, &timeouts) != 0;
}

}  // namespace

CommDevice::CommDevice(int port, HANDLE readEvent) : file_(OpenPort(port)), readEvent_(readEvent) {
  if (!SetLineParameters(file_.Get()) || !SetReadToWait(file_.Get())) {
    throw MakeSerialError(kSerialNotOpen);
  }
}

CommDevice::~CommDevice() {
  if (read_) Cancel(std::move(read_));
  ResetEvent(readEvent_);
}

bool CommDevice::StartRead() {
  if (read_) return true;
  auto read = std::make_unique<Transfer>();
  read->state.hEvent = readEvent_;
  read->bytes.resize(kReadBytes);
  if (ReadFile(file_.Get(), read->bytes.data(), kReadBytes, nullptr, &read->state) == 0 &&
      GetLastError() != ERROR_IO_PENDING) {
    return false;
  }
  read_ = std::move(read);
  return true;
}

std::optional<int> CommDevice::FinishRead() {
  if (!read_) return std::nullopt;
  DWORD count = 0;
  const bool ended = GetOverlappedResult(file_.Get(), &read_->state, &count, FALSE) != 0;
  if (!ended && GetLastError() == ERROR_IO_INCOMPLETE) return 0;
  read_.reset();
  if (!ended) return std::nullopt;
  COMSTAT state{};
  DWORD errors = 0;
  // A device that is gone may look like one that has nothing to say.
  if (count == 0 && ClearCommError(file_.Get(), &errors, &state) == 0) return std::nullopt;
  return static_cast<int>(count);
}

CommDevice::Written CommDevice::Write(std::string_view bytes, std::chrono::milliseconds limit) {
  auto write = std::make_unique<Transfer>();
  write->event = SystemHandle(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  write->state.hEvent = write->event.Get();
  write->bytes = bytes;
  const auto size = static_cast<DWORD>(bytes.size());
  if (WriteFile(file_.Get(), write->bytes.data(), size, nullptr, &write->state) == 0 &&
      GetLastError() != ERROR_IO_PENDING) {
    return Written::kFailed;
  }
  if (WaitForSingleObject(write->event.Get(), static_cast<DWORD>(limit.count())) != WAIT_OBJECT_0) {
    Cancel(std::move(write));
    PurgeComm(file_.Get(), PURGE_TXABORT | PURGE_TXCLEAR);
    return Written::kTooSlow;
  }
  DWORD count = 0;
  if (GetOverlappedResult(file_.Get(), &write->state, &count, FALSE) == 0) return Written::kFailed;
  return count == size ? Written::kAll : Written::kTooSlow;
}

void CommDevice::Cancel(std::unique_ptr<Transfer> transfer) {
  CancelIoEx(file_.Get(), &transfer->state);
  if (WaitForSingleObject(transfer->state.hEvent, kCancelWaitMs) != WAIT_OBJECT_0) {
    (void)transfer.release();
  }
}

}  // namespace orvane
