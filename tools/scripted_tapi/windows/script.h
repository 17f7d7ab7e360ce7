#pragma once

#include <deque>
#include <list>
#include <string>

#include "scripted_tapi.h"

namespace orvane {

// A telephone exchange with its drivers, as the telephony functions see them. Messages reach the
// program one at a time through a window that is never shown.
class Script : public ScriptedTapi {
 public:
  static constexpr HLINEAPP kApp = 0x1000;

  Script() { Script::Reset(); }
  void Reset() override;
  int LeftOver() const override;
  void CloseLine(DWORD device) override;
  DWORD AddDevice() override;
  void RemoveDevice(DWORD device) override;
  DWORD ReturnDevice(DWORD device) override;
  void AskForRenewal() override;
  void ForeignCall(DWORD device, const std::vector<DWORD>& states) override;

  void Start(LINECALLBACK callback);
  void Stop();
  DWORD DeviceCount() const { return static_cast<DWORD>(devices_.size()); }
  // The version that is agreed on for the device, 0 for none.
  DWORD VersionOf(DWORD device) const;
  std::wstring NameOf(DWORD device) const { return devices_.at(device).name; }
  LONG Open(DWORD device, DWORD version, DWORD_PTR instance, HLINE* line);
  LONG Close(HLINE line);
  LONG MakeCall(HLINE line, HCALL* place, const std::wstring& number);
  LONG Own(HCALL handle);
  LONG Drop(HCALL handle);
  LONG Deallocate(HCALL handle);
  LONG Misuse(const char* what, DWORD result);

 private:
  struct Device {
    DWORD version = 0;
    std::wstring name = {};
    // 0 when it is not open.
    HLINE line = 0;
    DWORD_PTR instance = 0;
  };
  struct Call {
    DWORD device = 0;
    HCALL handle = 0;
    DWORD privilege = 0;
    // The program has heard of the handle.
    bool isKnown = false;
    // As the program knows it.
    DWORD state = 0;
  };
  struct Record {
    LINEMESSAGE message;
    // Where the handle of a call goes just before the program hears that it is valid.
    HCALL* place = nullptr;
    HCALL handle = 0;
  };

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM word, LPARAM parameter);
  void Send(const Record& record);
  void SendState(const Call& call, DWORD state, DWORD mode = 0);
  void SendReply(LONG request, LONG result, HCALL* place, HCALL handle);
  void SendEnd(const Call& call, DWORD mode);
  void SendCourse(const Call& call, const std::wstring& number);
  void Deliver();
  void ForgetLine(DWORD device);
  DWORD NewDevice(const std::wstring& name);
  Call* Find(HCALL handle);
  Device* FindLine(HLINE line);

  std::vector<Device> devices_;
  std::list<Call> calls_;
  std::deque<Record> records_;
  LINECALLBACK callback_ = nullptr;
  HWND window_ = nullptr;
  bool stale_ = false;
  DWORD lastHandle_ = 0x2000;
  LONG lastRequest_ = 0;
};

// The library's one state: the telephony functions have no object.
Script& TheScript();

}  // namespace orvane
