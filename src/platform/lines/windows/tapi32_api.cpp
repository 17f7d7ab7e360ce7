#include "platform/lines/windows/tapi32_api.h"

namespace orvane {
namespace {

// A bare name is looked up among the system's libraries only: never in the current folder, where
// anybody may have put one.
HMODULE Open(const std::wstring& library) {
  const bool isPath = library.find_first_of(L"\\/") != std::wstring::npos;
  return LoadLibraryExW(library.c_str(), nullptr,
                        isPath ? LOAD_WITH_ALTERED_SEARCH_PATH : LOAD_LIBRARY_SEARCH_SYSTEM32);
}

template <typename Function>
bool Find(HMODULE library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
  return function != nullptr;
}

}  // namespace

bool Tapi32Api::Load(const std::wstring& library) {
  library_.reset(Open(library));
  HMODULE const found = library_.get();
  return found != nullptr && Find(found, "lineInitializeExW", initialise) &&
         Find(found, "lineShutdown", shutDown) &&
         Find(found, "lineNegotiateAPIVersion", negotiateVersion) &&
         Find(found, "lineGetDevCapsW", deviceCaps) &&
         Find(found, "lineGetAddressCapsW", addressCaps) &&
         Find(found, "lineTranslateDialogW", translateDialog) &&
         Find(found, "lineConfigDialogW", configDialog) && Find(found, "lineOpenW", open) &&
         Find(found, "lineClose", close) && Find(found, "lineMakeCallW", makeCall) &&
         Find(found, "lineSetCallPrivilege", setCallPrivilege) && Find(found, "lineDrop", drop) &&
         Find(found, "lineDeallocateCall", deallocateCall);
}

}  // namespace orvane
