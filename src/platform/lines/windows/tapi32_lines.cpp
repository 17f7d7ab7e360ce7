#include "platform/lines/windows/tapi32_lines.h"

#include <algorithm>
#include <utility>

#include "platform/lines/line_errors.h"
#include "platform/lines/windows/tapi32_errors.h"

namespace orvane {
namespace {

constexpr const wchar_t* kProgramName = L"Orvane";
constexpr DWORD kOldestVersion = 0x00010003;

// Whoever waits for a line that was not there at the start looks again.
void ReportInService(TapiEvents& events) {
  events.OnLineMessage("INSERVICE", "TapiLineDevState", LINEDEVSTATE_INSERVICE);
}

}  // namespace

Tapi32Lines::Tapi32Lines(EventLoop& loop, CallHandles& handles, std::wstring library)
    : loop_(loop), library_(std::move(library)), events_(loop), calls_(api_, events_, handles) {}

void Tapi32Lines::Initialise() {
  if (app_ != 0 || !api_.Load(library_)) return;
  Tapi32Receiver::Listener& self = *this;
  receiver_ = std::make_unique<Tapi32Receiver>(self);
  Start();
}

bool Tapi32Lines::Start() {
  LINEINITIALIZEEXPARAMS options{};
  options.dwTotalSize = sizeof options;
  options.dwOptions = LINEINITIALIZEEXOPTION_USEHIDDENWINDOW;
  DWORD devices = 0;
  DWORD version = TAPI_CURRENT_VERSION;
  if (api_.initialise(&app_, nullptr, &Tapi32Receiver::Callback, kProgramName, &devices, &version,
                      &options) != 0) {
    app_ = 0;
    return false;
  }
  stale_ = false;
  for (DWORD device = 0; device < devices; ++device) AddLine(device);
  return true;
}

void Tapi32Lines::ShutDown() {
  if (app_ != 0) api_.shutDown(std::exchange(app_, 0));
  renewal_.reset();
  stale_ = false;
  receiver_.reset();
  lines_.clear();
  calls_.Clear();
  events_.Clear();
}

std::string Tapi32Lines::LineName(int line) const {
  const Line& named = lines_[IndexOf(line)];
  // As long as TAPI has not taken the new registration, it is not known what is gone.
  const bool gone = named.removed && app_ != 0;
  return gone ? std::string() : named.name;
}

LineInfo Tapi32Lines::Info(int line) const {
  return ReadLineInfo(api_, lines_[IndexOf(line)].device);
}

void Tapi32Lines::ShowDialog(int line, LineDialog dialog, std::uintptr_t owner) {
  const Tapi32Device device = lines_[IndexOf(line)].device;
  const auto window = reinterpret_cast<HWND>(owner);
  const std::int32_t result =
      dialog == LineDialog::kDialling
          ? api_.translateDialog(app_, device.id, device.version, window, nullptr)
          : api_.configDialog(device.id, window, nullptr);
  if (result != static_cast<std::int32_t>(LINEERR_USERCANCELLED)) Checked(result);
}

// Monitoring lets this program follow calls that are placed or taken at the telephone itself, and
// takes none of them away from other programs. What is dialled here is owned here in any case.
void Tapi32Lines::OpenLine(int line) {
  if (lines_[IndexOf(line)].open != 0) return;
  // It is not known when TAPI takes a new registration; now would be good.
  if (app_ == 0 && stale_) Start();
  // By value: messages that come while the line is opened may add lines.
  const Line known = lines_[IndexOf(line)];
  if (known.removed) throw MakeLineError(static_cast<std::int32_t>(LINEERR_NODEVICE));
  HLINE handle = 0;
  Checked(api_.open(app_, known.device.id, &handle, known.device.version, 0,
                    static_cast<DWORD_PTR>(line), LINECALLPRIVILEGE_MONITOR,
                    LINEMEDIAMODE_INTERACTIVEVOICE, nullptr));
  lines_[IndexOf(line)].open = handle;
}

void Tapi32Lines::CloseLine(int line) {
  Line& closed = lines_[IndexOf(line)];
  if (closed.open == 0) return;
  api_.close(std::exchange(closed.open, 0));
  calls_.EndAll(line);
  PlanRenewal();
}

std::int32_t Tapi32Lines::MakeCall(int line, const std::string& number) {
  const Line& calling = lines_[IndexOf(line)];
  if (calling.open == 0) throw MakeLineError(kLineErrorInvalidLine);
  return calls_.Dial(line, calling.open, number);
}

void Tapi32Lines::DropCall(int line, std::int32_t callHandle) {
  IndexOf(line);
  calls_.Drop(line, callHandle);
}

void Tapi32Lines::OnTapiMessage(const LINEMESSAGE& message) {
  // Devices come and go by their numbers, everything else is about an open line.
  switch (message.dwMessageID) {
    case LINE_CREATE:
      OnCreate(static_cast<DWORD>(message.dwParam1));
      break;
    case LINE_REMOVE:
      OnRemove(static_cast<DWORD>(message.dwParam1));
      break;
    case LINE_REPLY:
      calls_.OnReply(message);
      break;
    case LINE_LINEDEVSTATE:
      // With a second parameter it stands for a message that older programs do not know.
      if (message.dwParam1 == LINEDEVSTATE_REINIT && message.dwParam2 == 0) stale_ = true;
      break;
    default:
      OnLineMessage(message);
  }
  PlanRenewal();
}

// The number that the line has here comes with each message.
void Tapi32Lines::OnLineMessage(const LINEMESSAGE& message) {
  if (message.dwCallbackInstance >= lines_.size()) return;
  const Line& line = lines_[message.dwCallbackInstance];
  const int number = static_cast<int>(message.dwCallbackInstance);
  if (line.open == 0) return;
  switch (message.dwMessageID) {
    case LINE_CALLSTATE:
      return calls_.OnState(number, message);
    case LINE_APPNEWCALL:
      if (message.hDevice == line.open) calls_.OnNewCall(number, message);
      break;
    case LINE_CLOSE:
      if (message.hDevice == line.open) Lose(number);
      break;
    default:
      break;
  }
}

void Tapi32Lines::OnCreate(DWORD device) {
  if (!AddLine(device)) return;
  events_.Add(&ReportInService);
}

void Tapi32Lines::OnRemove(DWORD device) {
  for (std::size_t line = 0; line < lines_.size(); ++line) {
    if (lines_[line].device.id != device) continue;
    lines_[line].removed = true;
    if (lines_[line].open != 0) Lose(static_cast<int>(line));
  }
}

void Tapi32Lines::Lose(int line) {
  lines_[static_cast<std::size_t>(line)].open = 0;
  calls_.EndAll(line);
  events_.Add([](TapiEvents& events) { events.OnLineMessage("SUCCESS", "TapiLineClose", 0); });
}

void Tapi32Lines::PlanRenewal() {
  if (!stale_ || app_ == 0 || calls_.Any()) return;
  // Not from within one of TAPI's own messages.
  renewal_ = loop_.After(std::chrono::milliseconds(0), [this] { Renew(); });
}

void Tapi32Lines::Renew() {
  if (app_ == 0 || calls_.Any()) return;
  std::vector<int> open;
  for (int line = 0; line < LineCount(); ++line) {
    Line& renewed = lines_[IndexOf(line)];
    if (std::exchange(renewed.open, 0) != 0) open.push_back(line);
    renewed.removed = true;
  }
  api_.shutDown(std::exchange(app_, 0));
  calls_.Clear();
  Start();
  for (const int line : open) {
    try {
      OpenLine(line);
    } catch (const TapiError&) {
      Lose(line);
    }
  }
  events_.Add(&ReportInService);
}

// Whether there is a line now that was not there before.
bool Tapi32Lines::AddLine(DWORD id) {
  const bool known = std::any_of(lines_.begin(), lines_.end(), [id](const Line& line) {
    return line.device.id == id && !line.removed;
  });
  Tapi32Device device{app_, id, 0};
  LINEEXTENSIONID extension{};
  if (known || api_.negotiateVersion(app_, id, kOldestVersion, TAPI_CURRENT_VERSION,
                                     &device.version, &extension) != 0) {
    return false;
  }
  std::string name = ReadLineName(api_, device);
  if (name.empty()) name = "TAPI-Gerät " + std::to_string(id);
  const auto back = std::find_if(lines_.begin(), lines_.end(), [&name](const Line& line) {
    return line.removed && line.name == name;
  });
  Line& line = back == lines_.end() ? lines_.emplace_back() : *back;
  line = {device, std::move(name), 0, false};
  return true;
}

std::size_t Tapi32Lines::IndexOf(int line) const {
  if (line < 0 || line >= LineCount()) {
    throw MakeLineError(kLineErrorBadDevice);
  }
  return static_cast<std::size_t>(line);
}

}  // namespace orvane
