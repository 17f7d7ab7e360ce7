#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "dialing/dial_panel.h"
#include "dialing/line_call.h"
#include "journal/call_logger.h"
#include "journal/current_call.h"
#include "platform/clock.h"

namespace orvane {

// Whom the host names together with a number. Texts are UTF-8, keys those of the host's records.
struct HandedInContact {
  std::string company;
  std::string place;
  std::string person;
  std::int32_t addressKey = 0;
  std::int32_t personKey = 0;
};

// The telephone session: whether a call is on, how it was placed, its handles, its times, its
// contact and its journal. Whoever places, follows or ends a call tells the session; how the dial
// buttons and the contact look in the window follows from it.
class Session {
 public:
  enum class Way { kModem, kLine };

  // Both outlive the session.
  Session(CallLogger& logger, DialPanel& panel) : logger_(logger), panel_(panel) {}

  bool On() const { return way_.has_value(); }
  // How the call was placed; a call taken at the telephone is the line's. Nothing without a
  // session.
  std::optional<Way> PlacedBy() const { return way_; }
  // Placed here, not taken or placed at the telephone itself.
  bool PlacedHere() const { return On() && placedHere_; }
  // Nothing has been heard of the call since it was placed.
  bool JustPlaced() const { return On() && nothingHeard_; }
  const CurrentCall& Call() const { return call_; }

  // The host names a number and its contact; `numberText` as the number field has it.
  void HandIn(const HandedInContact& contact, const std::string& numberText);
  // The number that is dialled next: its canonical form (external calls only) and its digits. What
  // is known of the contact goes when it is another number than before.
  void SetNumber(const std::string& canonical, const std::string& digits,
                 const std::string& countryPrefix);
  void ForgetCanonicalNumber() { call_.canonicalNumber.clear(); }

  // A call is being placed.
  void Begin(Way way);
  // The call's row in the journal begins.
  void LogStart(const Moment& clicked);
  // A request to the line is under way: until something is heard the buttons take no clicks.
  void SetWaiting(bool waiting);
  // The call is not as it was placed any more.
  void Heard() { nothingHeard_ = false; }

  // The handle of the session's call, 0 while the line has not reported it.
  std::int32_t CallHandle() const { return line_.Handle(); }
  // As LineCall has them. While a call goes through the modem, every call of a line is another one.
  void Placed(std::int32_t handle) { line_.Placed(handle); }
  bool Follow(std::int32_t handle) { return way_ != Way::kModem && line_.Follow(handle); }
  bool IsOther(std::int32_t handle) const { return way_ == Way::kModem || line_.IsOther(handle); }

  // The call that is followed is connected; it may have been placed at the telephone itself.
  void Connect(const Moment& at);
  void Busy(const Moment& at);
  // The line has reported the end.
  void Finish(const Moment& at);
  // The call is over without the line's word: hung up through the modem, or never placed.
  void Abandon();
  // The program ends in the middle of a call.
  void Close(const Moment& at);

 private:
  void Show();
  void Release();
  void ForgetTimes();

  CallLogger& logger_;
  DialPanel& panel_;
  CurrentCall call_;
  LineCall line_;
  std::optional<Way> way_;
  bool placedHere_ = false;
  bool nothingHeard_ = false;
  bool waiting_ = false;
  // The host's number until another one is dialled.
  std::optional<std::string> handedIn_;
};

}  // namespace orvane
