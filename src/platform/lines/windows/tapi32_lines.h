#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/event_loop.h"
#include "platform/lines/line_event_queue.h"
#include "platform/lines/line_service_provider.h"
#include "platform/lines/windows/tapi32_api.h"
#include "platform/lines/windows/tapi32_calls.h"
#include "platform/lines/windows/tapi32_caps.h"
#include "platform/lines/windows/tapi32_receiver.h"

namespace orvane {

// The system's own telephone lines (TAPI 2.x). A machine without TAPI, or with one that does not
// start, has no lines; a device that speaks no version this program knows is no line either.
//
// Lines that come up later are added behind the known ones, so this provider is best asked last. A
// line that went away and is back is the same line again, by its name.
class Tapi32Lines : public LineServiceProvider, private Tapi32Receiver::Listener {
 public:
  // `library`: a path, or a bare name for the system's own library.
  Tapi32Lines(EventLoop& loop, CallHandles& handles, std::wstring library = L"tapi32.dll");
  ~Tapi32Lines() override { ShutDown(); }

  void Initialise() override;
  void ShutDown() override;

  int LineCount() const override { return static_cast<int>(lines_.size()); }
  std::string LineName(int line) const override;
  LineInfo Info(int line) const override;
  void ShowDialog(int line, LineDialog dialog, std::uintptr_t owner) override;
  void OpenLine(int line) override;
  void CloseLine(int line) override;
  std::int32_t MakeCall(int line, const std::string& number) override;
  void DropCall(int line, std::int32_t callHandle) override;
  void SetEvents(TapiEvents* events) override { events_.SetListener(events); }

 private:
  struct Line {
    Tapi32Device device;
    std::string name;
    // TAPI's handle while the line is open, otherwise 0.
    HLINE open = 0;
    bool removed = false;
  };

  void OnTapiMessage(const LINEMESSAGE& message) override;
  void OnLineMessage(const LINEMESSAGE& message);
  void OnCreate(DWORD device);
  void OnRemove(DWORD device);
  // The line was closed, but not by this program.
  void Lose(int line);

  // Registers with TAPI and finds its devices; whether that worked.
  bool Start();
  // TAPI's configuration has changed: registers anew as soon as there is no call, and opens again
  // what was open.
  void PlanRenewal();
  void Renew();

  bool AddLine(DWORD device);
  std::size_t IndexOf(int line) const;

  EventLoop& loop_;
  const std::wstring library_;
  Tapi32Api api_;
  LineEventQueue events_;
  Tapi32Calls calls_;
  std::unique_ptr<Tapi32Receiver> receiver_;
  HLINEAPP app_ = 0;
  std::vector<Line> lines_;
  // TAPI has asked for a new registration and not had it yet.
  bool stale_ = false;
  std::unique_ptr<EventLoop::Timer> renewal_;
};

}  // namespace orvane
