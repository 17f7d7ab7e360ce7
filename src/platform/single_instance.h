#pragma once

namespace orvane {

// Whether this program already runs for this user in this desktop session.
class SingleInstance {
 public:
  virtual ~SingleInstance() = default;
  // Claims the session for this process until the object dies; false when another process holds it.
  // A process that died holds nothing.
  virtual bool Claim() = 0;
};

}  // namespace orvane
