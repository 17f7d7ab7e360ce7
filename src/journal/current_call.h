#pragma once

#include <cstdint>
#include <string>

namespace orvane {

// The one call that is prepared, running or was last made. Texts are UTF-8.
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
  // Days since 1899-12-30.
  double connectDateTime = 0;
  std::string company;
  std::string place;
  std::string person;
  std::int32_t addressKey = 0;
  std::int32_t personKey = 0;
  // The line's handle of the call; 0 when there is none.
  std::int32_t tapiCallHandle = 0;
  // The handle that a call placed here will be named by, from before the line reports it to the
  // call's end; 0 when there is none or it is not known.
  std::int32_t placedCallHandle = 0;

  // The line has no call any more that this program follows.
  void ForgetLineCall() { tapiCallHandle = placedCallHandle = 0; }
};

}  // namespace orvane
