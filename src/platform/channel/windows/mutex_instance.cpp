#include "platform/channel/windows/mutex_instance.h"

#include "platform/system/windows/wide_text.h"

namespace orvane {

MutexInstance::MutexInstance(const std::string& name) : name_(L"Local\\" + ToWide(name)) {}

bool MutexInstance::Claim() {
  if (mutex_.Valid()) return true;
  // Whoever creates it first holds the session; nobody ever waits for it.
  SystemHandle mutex(CreateMutexW(nullptr, FALSE, name_.c_str()));
  const DWORD code = GetLastError();
  if (mutex.Valid() ? code == ERROR_ALREADY_EXISTS : code == ERROR_ACCESS_DENIED) return false;
  mutex_ = std::move(mutex);
  return true;
}

}  // namespace orvane
