#pragma once

#include <windows.h>
// The version of the interface that this program speaks.
#define TAPI_CURRENT_VERSION 0x00020002
#include <tapi.h>

#include <memory>
#include <string>
#include <type_traits>

namespace orvane {

// The functions of the telephony library that this program calls; all of them or none are there.
struct Tapi32Api {
  // Finds the functions in `library`: a path, or a bare name for the system's own library. False
  // when there is no such library or one that lacks a function.
  bool Load(const std::wstring& library);

  decltype(&::lineInitializeExW) initialise = nullptr;
  decltype(&::lineShutdown) shutDown = nullptr;
  decltype(&::lineNegotiateAPIVersion) negotiateVersion = nullptr;
  decltype(&::lineGetDevCapsW) deviceCaps = nullptr;
  decltype(&::lineGetAddressCapsW) addressCaps = nullptr;
  decltype(&::lineTranslateDialogW) translateDialog = nullptr;
  decltype(&::lineConfigDialogW) configDialog = nullptr;
  decltype(&::lineOpenW) open = nullptr;
  decltype(&::lineClose) close = nullptr;
  decltype(&::lineMakeCallW) makeCall = nullptr;
  decltype(&::lineSetCallPrivilege) setCallPrivilege = nullptr;
  decltype(&::lineDrop) drop = nullptr;
  decltype(&::lineDeallocateCall) deallocateCall = nullptr;

 private:
  struct Unload {
    void operator()(HMODULE module) const { FreeLibrary(module); }
  };
  std::unique_ptr<std::remove_pointer_t<HMODULE>, Unload> library_;
};

}  // namespace orvane
