#pragma once

#include <windows.h>

#include <utility>

namespace orvane {

// Owns a handle of the system that CloseHandle gives back.
class SystemHandle {
 public:
  SystemHandle() = default;
  explicit SystemHandle(HANDLE handle) : handle_(handle) {}
  ~SystemHandle() { Reset(); }
  SystemHandle(SystemHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  SystemHandle& operator=(SystemHandle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }

  HANDLE Get() const { return handle_; }
  bool Valid() const { return handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE; }
  void Reset() {
    if (Valid()) CloseHandle(handle_);
    handle_ = nullptr;
  }

 private:
  HANDLE handle_ = nullptr;
};

}  // namespace orvane
