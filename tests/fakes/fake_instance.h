#pragma once

#include "platform/single_instance.h"

namespace orvane {

class FakeInstance : public SingleInstance {
 public:
  bool Claim() override { return !anotherRuns; }
  bool anotherRuns = false;
};

}  // namespace orvane
