#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace orvane {

enum class CallDirection { kOutgoing, kIncoming };

// A call as it begins. Texts are UTF-8.
struct NewCall {
  CallDirection direction = CallDirection::kOutgoing;
  bool external = false;
  // "mm/dd/yyyy hh:nn:ss"; by this the row is found when the call ends.
  std::string startText;
  // Empty when there is none.
  std::string number;
  std::string company;
  std::string place;
  std::string person;
  // Of the host's records; 0 when there is none.
  std::int32_t addressKey = 0;
  std::int32_t personKey = 0;
};

// A connected or busy call as it ends.
struct EndedCall {
  CallDirection direction = CallDirection::kOutgoing;
  // The rows that begin at `startText` get this time instead.
  std::string startText;
  std::string connectText;
  // A duration text or "Besetzt".
  std::string duration;
};

// A call as the journal holds it; texts are UTF-8, empty where there is none.
struct JournalCall {
  // Days since 1899-12-30, to the second; nothing when the row has no time or an impossible one.
  std::optional<double> time;
  bool external = false;
  std::string number;
  std::string company;
  std::string place;
  std::string person;
};

// How long a call of the journal took. Time and number say which call it is.
struct JournalDuration {
  std::optional<double> time;
  std::string number;
  // Nothing for a call that was never connected, or busy.
  std::optional<std::int64_t> seconds;
};

}  // namespace orvane
