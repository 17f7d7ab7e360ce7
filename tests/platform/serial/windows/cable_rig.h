#pragma once

#include <windows.h>

#include <optional>
#include <stdexcept>
#include <string>

#include "contract/serial_rig.h"
#include "platform/serial/windows/comm_serial_control.h"
#include "platform/system/windows/system_handle.h"

namespace orvane {

// One end of a serial cable, read and written at once and without the code under test.
class CableEnd {
 public:
  explicit CableEnd(int port)
      : file_(CreateFileW((L"\\\\.\\COM" + std::to_wstring(port)).c_str(),
                          GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr)) {}

  bool Connected() const { return file_.Valid(); }
  void Write(std::string_view bytes) const {
    DWORD count = 0;
    WriteFile(file_.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr);
  }
  // What is there now.
  std::string Read() const {
    COMSTAT state{};
    DWORD errors = 0;
    ClearCommError(file_.Get(), &errors, &state);
    std::string bytes(state.cbInQue, '\0');
    DWORD count = 0;
    if (!bytes.empty()) ReadFile(file_.Get(), bytes.data(), state.cbInQue, &count, nullptr);
    bytes.resize(count);
    return bytes;
  }

 private:
  SystemHandle file_;
};

// The machine's ports COM11 and COM12 with a cable between them, as the test cable lays it, which
// takes orders at COM14 and confirms them. There is no COM15.
class CableRig : public SerialRig {
 public:
  CableRig() {
    Order('+');
    farEnd_.emplace(12);
  }
  SerialPorts Ports() const override { return {11, 15, 13}; }
  SerialControl& Control() override { return control_; }
  void Feed(std::string_view bytes) override { farEnd_->Write(bytes); }
  std::string Sent() override { return farEnd_->Read(); }
  void Unplug() override { Order('-'); }
  bool OccupyShared() override {
    other_.SetCommPort(Ports().shared);
    other_.SetPortOpen(true);
    return !IsWine();
  }

 private:
  void Order(char what) const {
    if (!orders_.Connected())
      throw std::runtime_error("COM14, where the cable takes orders, is missing");
    orders_.Write({&what, 1});
    while (orders_.Read().empty()) Sleep(1);
  }
  // It opens a port as often as it is asked to.
  static bool IsWine() {
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
  }

  CableEnd orders_{14};
  // Opened when the cable lies.
  std::optional<CableEnd> farEnd_;
  CommSerialControl control_, other_;
};

}  // namespace orvane
