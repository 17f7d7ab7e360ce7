#include "platform/windows/comm_device.h"

#include <string>

#include "platform/serial_control.h"
#include "platform/serial_errors.h"

namespace orvane {
namespace {

constexpr BYTE kDataBits = 8;
// Between two characters of one text there is one millisecond.
constexpr DWORD kPauseMs = 5;
constexpr DWORD kDrainStepMs = 2;

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

CommDevice::CommDevice(int port, HANDLE readEvent)
    : file_(OpenPort(port)), written_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
  if (!SetLineParameters(file_.Get()) || !SetReadToWait(file_.Get())) {
    throw MakeSerialError(kSerialNotOpen);
  }
  read_.hEvent = readEvent;
}

CommDevice::~CommDevice() {
  // The system writes into this object until the read has ended.
  DWORD count = 0;
  if (CancelIoEx(file_.Get(), &read_) != 0) GetOverlappedResult(file_.Get(), &read_, &count, TRUE);
  ResetEvent(read_.hEvent);
}

bool CommDevice::StartRead() {
  if (reading_) return true;
  reading_ = ReadFile(file_.Get(), received_.data(), static_cast<DWORD>(received_.size()), nullptr,
                      &read_) != 0 ||
             GetLastError() == ERROR_IO_PENDING;
  return reading_;
}

std::optional<int> CommDevice::FinishRead() {
  DWORD count = 0;
  if (GetOverlappedResult(file_.Get(), &read_, &count, FALSE) == 0) {
    if (GetLastError() == ERROR_IO_INCOMPLETE) return 0;
    reading_ = false;
    return std::nullopt;
  }
  reading_ = false;
  COMSTAT state{};
  DWORD errors = 0;
  // A device that is gone may look like one that has nothing to say.
  if (count == 0 && ClearCommError(file_.Get(), &errors, &state) == 0) return std::nullopt;
  return static_cast<int>(count);
}

CommDevice::Written CommDevice::Write(std::string_view bytes, std::chrono::milliseconds limit) {
  OVERLAPPED write{};
  write.hEvent = written_.Get();
  DWORD count = 0;
  if (WriteFile(file_.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), nullptr, &write) ==
          0 &&
      GetLastError() != ERROR_IO_PENDING) {
    return Written::kFailed;
  }
  const bool inTime =
      WaitForSingleObject(written_.Get(), static_cast<DWORD>(limit.count())) == WAIT_OBJECT_0;
  if (!inTime) CancelIoEx(file_.Get(), &write);
  const bool ended = GetOverlappedResult(file_.Get(), &write, &count, TRUE) != 0;
  if (ended && count == bytes.size()) return Written::kAll;
  if (inTime && !ended) return Written::kFailed;
  PurgeComm(file_.Get(), PURGE_TXABORT | PURGE_TXCLEAR);
  return Written::kTooSlow;
}

// The system's own way to wait for this has no limit, and a device that hangs never gets there.
void CommDevice::Drain(std::chrono::milliseconds limit) {
  const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(limit.count());
  COMSTAT state{};
  DWORD errors = 0;
  while (ClearCommError(file_.Get(), &errors, &state) != 0 && state.cbOutQue > 0 &&
         GetTickCount64() < end) {
    Sleep(kDrainStepMs);
  }
}

}  // namespace orvane
