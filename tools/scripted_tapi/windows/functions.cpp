// The telephony functions that the library exports.
#include <cstring>

#include "script.h"

namespace {

using orvane::ScriptedTapi;
using orvane::TheScript;

LONG Error(DWORD result) {
  return static_cast<LONG>(result);
}

// Appends a text to a record, if it fits; in any case to the size that is needed.
template <typename Record>
void Append(Record& record, DWORD& offset, DWORD& size, const std::wstring& text) {
  size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  offset = record.dwNeededSize;
  record.dwNeededSize += size;
  if (record.dwNeededSize <= record.dwTotalSize) {
    std::memcpy(reinterpret_cast<char*>(&record) + offset, text.c_str(), size);
    record.dwUsedSize = record.dwNeededSize;
  } else {
    offset = size = 0;
  }
}

// Clears a record for its answer.
template <typename Record>
void Begin(Record& record) {
  const DWORD total = record.dwTotalSize;
  std::memset(&record, 0, sizeof record);
  record.dwTotalSize = total;
  record.dwNeededSize = record.dwUsedSize = sizeof record;
}

bool Agreed(DWORD device, DWORD version) {
  return version != 0 && version == TheScript().VersionOf(device);
}

}  // namespace

extern "C" {

orvane::ScriptedTapi* GetScriptedTapi() {
  return &TheScript();
}

LONG WINAPI lineInitializeExW(LPHLINEAPP app, HINSTANCE, LINECALLBACK callback, LPCWSTR,
                              LPDWORD devices, LPDWORD version, LPLINEINITIALIZEEXPARAMS options) {
  if (options->dwOptions != LINEINITIALIZEEXOPTION_USEHIDDENWINDOW || *version < 0x00020000) {
    return TheScript().Misuse("initialise", LINEERR_INVALPARAM);
  }
  *app = orvane::Script::kApp;
  if (TheScript().results.initialise != 0) return TheScript().results.initialise;
  *devices = TheScript().DeviceCount();
  TheScript().Start(callback);
  return 0;
}

LONG WINAPI lineShutdown(HLINEAPP app) {
  if (app != orvane::Script::kApp) return TheScript().Misuse("shutdown", LINEERR_INVALAPPHANDLE);
  TheScript().Stop();
  return 0;
}

LONG WINAPI lineNegotiateAPIVersion(HLINEAPP, DWORD device, DWORD low, DWORD high, LPDWORD version,
                                    LPLINEEXTENSIONID) {
  const DWORD own = TheScript().VersionOf(device);
  if (own < low || own > high) return Error(LINEERR_INCOMPATIBLEAPIVERSION);
  *version = own;
  return 0;
}

LONG WINAPI lineGetDevCapsW(HLINEAPP, DWORD device, DWORD version, DWORD, LPLINEDEVCAPS caps) {
  if (!Agreed(device, version)) return TheScript().Misuse("devCaps", LINEERR_BADDEVICEID);
  Begin(*caps);
  caps->dwBearerModes = LINEBEARERMODE_VOICE | LINEBEARERMODE_SPEECH;
  caps->dwMediaModes = LINEMEDIAMODE_INTERACTIVEVOICE;
  caps->dwAddressModes = LINEADDRESSMODE_ADDRESSID;
  const bool isExchange = device == ScriptedTapi::kExchange;
  caps->dwNumAddresses = isExchange ? 2 : 1;
  Append(*caps, caps->dwLineNameOffset, caps->dwLineNameSize, TheScript().NameOf(device));
  Append(*caps, caps->dwSwitchInfoOffset, caps->dwSwitchInfoSize, L"Schalter");
  Append(*caps, caps->dwProviderInfoOffset, caps->dwProviderInfoSize,
         std::wstring(3000, L'x') + std::wstring(1, L'\0') + L"Ende");
  if (TheScript().manner.insatiable) caps->dwNeededSize = 2 * caps->dwTotalSize;
  return 0;
}

LONG WINAPI lineGetAddressCapsW(HLINEAPP, DWORD device, DWORD address, DWORD version, DWORD,
                                LPLINEADDRESSCAPS caps) {
  if (!Agreed(device, version)) return TheScript().Misuse("addressCaps", LINEERR_BADDEVICEID);
  if (device == ScriptedTapi::kOldCard) return Error(LINEERR_OPERATIONUNAVAIL);
  Begin(*caps);
  caps->dwBusyModes = LINEBUSYMODE_UNAVAIL;
  caps->dwCallFeatures = LINECALLFEATURE_DROP;
  caps->dwCallInfoStates = LINECALLINFOSTATE_CALLEDID;
  caps->dwCallStates = LINECALLSTATE_CONNECTED | LINECALLSTATE_IDLE;
  caps->dwDialToneModes = LINEDIALTONEMODE_UNKNOWN;
  caps->dwDisconnectModes = LINEDISCONNECTMODE_BUSY;
  caps->dwParkModes = LINEPARKMODE_NONDIRECTED;
  Append(*caps, caps->dwAddressOffset, caps->dwAddressSize,
         L"Nebenstelle " + std::to_wstring(address));
  return 0;
}

LONG WINAPI lineTranslateDialogW(HLINEAPP, DWORD device, DWORD version, HWND owner, LPCWSTR) {
  if (!Agreed(device, version)) return TheScript().Misuse("translateDialog", LINEERR_BADDEVICEID);
  TheScript().dialogs.push_back("dialling " + std::to_string(device) + " before " +
                                std::to_string(reinterpret_cast<std::uintptr_t>(owner)));
  return Error(LINEERR_USERCANCELLED);
}

LONG WINAPI lineConfigDialogW(DWORD device, HWND owner, LPCWSTR) {
  if (device == ScriptedTapi::kOldCard) return Error(LINEERR_OPERATIONUNAVAIL);
  TheScript().dialogs.push_back("device " + std::to_string(device) + " before " +
                                std::to_string(reinterpret_cast<std::uintptr_t>(owner)));
  return 0;
}

LONG WINAPI lineOpenW(HLINEAPP, DWORD device, LPHLINE line, DWORD version, DWORD,
                      DWORD_PTR instance, DWORD, DWORD, LPLINECALLPARAMS const) {
  return TheScript().Open(device, version, instance, line);
}

LONG WINAPI lineClose(HLINE line) {
  return TheScript().Close(line);
}

LONG WINAPI lineMakeCallW(HLINE line, LPHCALL call, LPCWSTR number, DWORD, LPLINECALLPARAMS const) {
  return TheScript().MakeCall(line, call, number);
}

LONG WINAPI lineSetCallPrivilege(HCALL call, DWORD) {
  return TheScript().Own(call);
}

LONG WINAPI lineDrop(HCALL call, LPCSTR, DWORD) {
  return TheScript().Drop(call);
}

LONG WINAPI lineDeallocateCall(HCALL call) {
  return TheScript().Deallocate(call);
}
}
