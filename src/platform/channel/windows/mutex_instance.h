#pragma once

#include <string>

#include "platform/single_instance.h"
#include "platform/system/windows/system_handle.h"

namespace orvane {

// Holds a named mutex of the desktop session; the system takes it back when the process dies.
class MutexInstance : public SingleInstance {
 public:
  // UTF-8, without a "\".
  explicit MutexInstance(const std::string& name = "Orvane.SingleInstance");

  // False as well when it runs with higher rights or for another user in this session. True when
  // the system has no mutex to give: a program that cannot tell had better start.
  bool Claim() override;

 private:
  std::wstring name_;
  SystemHandle mutex_;
};

}  // namespace orvane
