#include <gtest/gtest.h>

#include "contract/system_implementations.h"

namespace orvane {

TEST(SingleInstanceContract, OneAtATime) {
  const InstanceFactory make = MakeSystemInstances();
  auto first = make();
  EXPECT_TRUE(first->Claim());
  EXPECT_TRUE(first->Claim());
  EXPECT_FALSE(make()->Claim());
  first.reset();
  EXPECT_TRUE(make()->Claim());
}

}  // namespace orvane
