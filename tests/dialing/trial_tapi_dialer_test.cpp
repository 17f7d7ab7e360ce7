#include "dialing/trial_tapi_dialer.h"

#include <gtest/gtest.h>

#include "fakes/program_fixture.h"
#include "fakes/recording_test_dial.h"

namespace orvane {
namespace {

using Lines = std::vector<std::string>;

class TestTapiDialerTest : public ProgramFixture {
 protected:
  TestTapiDialerTest() {
    tapi.lineNames = {"Büro", "Lager"};
    tapi.tag = TapiTag::kOpened;
    state.settings.tapiLineId = 1;
  }
  RecordingTestDial dialog;
  TrialTapiDialer test{tapi, prompts, state.settings, call, dialog};
};

TEST_F(TestTapiDialerTest, OpensALineThatWasLost) {
  tapi.tag = TapiTag::kClosed;
  call.tapiCallHandle = 99;
  test.TestDialTapi("1");
  EXPECT_EQ(tapi.log, (Lines{"open 1 4 6 9", "call 1 1"}));
  EXPECT_EQ(call.tapiCallHandle, 0);
}

TEST_F(TestTapiDialerTest, ReportsAFailureAndIsIdleAgain) {
  for (const std::int32_t line : {1, kNoTapiLine}) {
    SCOPED_TRACE(line);
    tapi.failing = line == 1;
    state.settings.tapiLineId = line;
    prompts.markups.clear();
    test.TestDialTapi("1");
    EXPECT_FALSE(dialog.pressed);
    EXPECT_TRUE(dialog.enabled);
    ASSERT_EQ(prompts.markups.size(), 1U);
    EXPECT_NE(prompts.markups[0].text.find("\"TAPI-Testwahl\""), std::string::npos);
  }
}

}  // namespace
}  // namespace orvane
