#pragma once

#include <windows.h>
#define TAPI_CURRENT_VERSION 0x00020002
#include <tapi.h>

#include <cstdint>
#include <string>
#include <vector>

namespace orvane {

// What a test can ask of the library that plays telephony, beside the telephony functions that it
// exports. The last digits of a number decide the course of a call:
//   99901 busy, 99902 rings until dropped, 99903 rejected, 99905 the far end hangs up, 99906
//   unknown; every other number is answered.
class ScriptedTapi {
 public:
  virtual ~ScriptedTapi() = default;

  // Devices, by number, and the only device that speaks no version this program knows.
  static constexpr DWORD kExchange = 0, kStranger = 1, kOldCard = 2;
  static constexpr std::size_t kFirstDevices = 3;

  // How its driver behaves.
  struct Manner {
    // What happens to a call by itself comes before the request to dial is confirmed.
    bool statesBeforeReply = false;
    // Calls go idle without having been disconnected.
    bool abruptEnds = false;
    // A busy call stays until it is dropped.
    bool busyTone = false;
    // Asks for ever more room for what it tells about a device.
    bool insatiable = false;
    // Another device comes up while a line is being opened.
    bool growsWhileOpening = false;
  } manner;

  // What the functions answer; 0 is success.
  struct Results {
    LONG initialise = 0, open = 0, makeCall = 0, dialReply = 0, drop = 0, dropReply = 0;
  } results;

  // The dialogs that were shown.
  std::vector<std::string> dialogs;
  // What no program may do.
  std::vector<std::string> misuses;

  // Everything as when the library was loaded.
  virtual void Reset() = 0;
  // How many calls that are over the program has not dropped or given back.
  virtual int LeftOver() const = 0;
  virtual void CloseLine(DWORD device) = 0;
  // Gives the new device's number.
  virtual DWORD AddDevice() = 0;
  virtual void RemoveDevice(DWORD device) = 0;
  // A device that was removed comes back under another number, which it gives.
  virtual DWORD ReturnDevice(DWORD device) = 0;
  // Asks for a new registration; before it, no line can be opened.
  virtual void AskForRenewal() = 0;
  // Somebody else's call on the device's open line runs through the states.
  virtual void ForeignCall(DWORD device, const std::vector<DWORD>& states) = 0;
};

// Exported beside the telephony functions under this name.
inline constexpr char kScriptedTapiFunction[] = "GetScriptedTapi";
using GetScriptedTapiFunction = ScriptedTapi*();

}  // namespace orvane
