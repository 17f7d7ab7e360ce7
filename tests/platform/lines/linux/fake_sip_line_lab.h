#pragma once

#include "contract/qt_line_lab.h"
#include "fakes/fake_baresip.h"
#include "platform/lines/linux/sip_lines.h"

namespace orvane {

inline constexpr char kAnna[] = "sip:anna@example.org";
inline constexpr char kBert[] = "sip:bert@example.org:5070";

// SIP lines at a baresip that only plays.
class FakeSipLineLab : public QtLineLab {
 public:
  explicit FakeSipLineLab(std::chrono::milliseconds answerLimit = std::chrono::seconds(10))
      : lines_(loop_, handles_,
               {"127.0.0.1", baresip_.Port(), std::chrono::milliseconds(10), answerLimit}) {
    answered = "0301";
    busy = "0302";
    noAnswer = "0303";
    rejected = "0304";
    farEndHangsUp = "0305";
    unknown = "0306";
  }
  LineServiceProvider& Provider() override { return lines_; }
  FakeBaresip& Baresip() { return baresip_; }

 private:
  static FakeBaresip::Courses Courses() {
    const FakeBaresip::Step ringing{"CALL_RINGING", "sip:030@example.org"};
    const FakeBaresip::Step established{"CALL_ESTABLISHED", "sip:030@example.org"};
    return {{"0301", {ringing, established}},
            {"0302", {{"CALL_CLOSED", "486 Busy Here"}}},
            {"0303", {{"CALL_PROGRESS", ""}, ringing, ringing}},
            {"0304", {ringing, {"CALL_CLOSED", "603 Decline"}}},
            {"0305", {ringing, established, {"CALL_CLOSED", "Connection reset by peer"}}},
            {"0307", {}},
            {"0308", {{"REFUSED", ""}}},
            {"*21*030%23", {ringing}}};
  }

  FakeBaresip baresip_{{kAnna, kBert, kAnna}, Courses()};
  SipLines lines_;
};

}  // namespace orvane
