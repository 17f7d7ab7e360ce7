#pragma once

#include <cstdint>
#include <string>

namespace orvane {

// What is known of the one call that is prepared, running or was last made. Texts are UTF-8.
struct CurrentCall {
  // Canonical international form, external calls only; used for the contact lookup.
  std::string canonicalNumber;
  // Digits only: the number last dialled or handed in by the host, or the extension.
  std::string lastDialedDigits;
  // "mm/dd/yyyy hh:nn:ss"; empty when no call runs, or is not connected.
  std::string startText;
  std::string connectText;
  // The folder of the user whose journal holds the call.
  std::string userPath;
  // Moment::universal.
  double connectDateTime = 0;
  std::string company;
  std::string place;
  std::string person;
  std::int32_t addressKey = 0;
  std::int32_t personKey = 0;
  // The contact as `lblAdr` shows it; lines are parted by CR LF.
  std::string contactText;
};

}  // namespace orvane
