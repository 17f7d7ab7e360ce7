#include "dialing/session.h"

#include "app/date_time.h"
#include "dialing/number_preparation.h"

namespace orvane {

void Session::HandIn(const HandedInContact& contact, const std::string& numberText) {
  call_.company = contact.company;
  call_.place = contact.place;
  call_.person = contact.person;
  call_.addressKey = contact.addressKey;
  call_.personKey = contact.personKey;
  call_.lastDialedDigits = FilterChars(numberText, kDigits, true);
  handedIn_ = numberText;
  call_.contactText = contact.company + "\r\n" + contact.person + "\r\n\r\n" + contact.place;
  panel_.SetContactLabel(call_.contactText);
}

void Session::SetNumber(const std::string& canonical, const std::string& digits,
                        const std::string& countryPrefix) {
  call_.canonicalNumber = canonical;
  // The digits of +43 1234 are those of the local number 431234. What the host handed in is
  // compared as it would be dialled.
  const std::string before =
      handedIn_ ? FilterChars(PrepareDialNumber(*handedIn_, countryPrefix), kDigits, true)
                : call_.lastDialedDigits;
  handedIn_.reset();
  call_.lastDialedDigits = digits;
  if (digits == before) return;
  call_.company.clear();
  call_.place.clear();
  call_.person.clear();
  call_.addressKey = 0;
  call_.personKey = 0;
  call_.contactText.clear();
  panel_.SetContactLabel("");
}

void Session::Begin(Way way) {
  way_ = way;
  placedHere_ = true;
  nothingHeard_ = true;
  ForgetTimes();
  line_.Forget();
  Show();
}

void Session::LogStart(const Moment& clicked) {
  logger_.LogCall(call_, true, false, clicked);
}

void Session::SetWaiting(bool waiting) {
  waiting_ = waiting;
  Show();
}

void Session::Connect(const Moment& at) {
  if (!On()) {
    way_ = Way::kLine;
    placedHere_ = false;
    // What stands there belongs to the number that was dialled last.
    panel_.SetContactLabel("");
  }
  nothingHeard_ = false;
  call_.connectDateTime = at.universal;
  call_.connectText = TimeText(at.local);
  Show();
}

void Session::Busy(const Moment& at) {
  nothingHeard_ = false;
  logger_.LogCall(call_, false, true, at);
}

void Session::Finish(const Moment& at) {
  Release();
  logger_.LogCall(call_, false, false, at);
  // A call that was never connected must not lend its row to the next one.
  ForgetTimes();
}

void Session::Abandon() {
  Release();
  ForgetTimes();
}

void Session::Close(const Moment& at) {
  if (way_ == Way::kLine) logger_.LogCall(call_, false, false, at);
}

void Session::Show() {
  panel_.SetDialButtonIdle(!On());
  panel_.SetDialButtonsEnabled(!waiting_);
}

void Session::Release() {
  line_.Forget();
  if (On() && !placedHere_) panel_.SetContactLabel(call_.contactText);
  way_.reset();
  nothingHeard_ = false;
  waiting_ = false;
  Show();
}

void Session::ForgetTimes() {
  call_.startText.clear();
  call_.connectText.clear();
}

}  // namespace orvane
