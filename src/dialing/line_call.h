#pragma once

#include <cstdint>

namespace orvane {

// The one call that is followed on a telephone line, by its handles. 0 stands for none.
class LineCall {
 public:
  // A call was placed; the handle by which the line is going to name it, 0 when it does not say.
  void Placed(std::int32_t handle) { placed_ = handle; }
  // The line names its call; false when that is another one.
  bool Follow(std::int32_t handle) {
    if (IsOther(handle)) return false;
    reported_ = handle;
    return true;
  }
  void Forget() { reported_ = placed_ = 0; }

  // As the line has reported it; 0 before.
  std::int32_t Handle() const { return reported_; }
  // Whether there is a call and this is another one: placed or taken at the telephone itself, or
  // the end of a call that was hung up before.
  bool IsOther(std::int32_t handle) const {
    const std::int32_t known = reported_ != 0 ? reported_ : placed_;
    return known != 0 && handle != known;
  }

 private:
  std::int32_t reported_ = 0;
  // From before the line reports it to the call's end.
  std::int32_t placed_ = 0;
};

}  // namespace orvane
