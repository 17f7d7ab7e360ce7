#pragma once

// What every source of telephone lines does alike. A test program includes this once and says for
// which implementations.
#include <gtest/gtest.h>

#include <algorithm>

#include "contract/line_lab.h"
#include "platform/errors.h"

namespace orvane {

class LineProviderContract : public testing::TestWithParam<LineImplementation> {
 protected:
  LineProviderContract() {
    lines.SetEvents(&events);
    lines.Initialise();
    lines.OpenLine(0);
  }

  bool Saw(const std::string& event) const {
    return std::find(events.log.begin(), events.log.end(), event) != events.log.end();
  }
  bool WaitFor(const std::string& event) {
    return lab->RunUntil([this, &event] { return Saw(event); });
  }
  // The tail of every call, once and in this order.
  void ExpectEnded() {
    ASSERT_TRUE(WaitFor("1"));
    lab->Settle();
    ASSERT_GE(events.log.size(), 3U);
    EXPECT_EQ(std::vector<std::string>(events.log.end() - 3, events.log.end()),
              (std::vector<std::string>{"16384", "disconnected", "1"}));
    EXPECT_EQ(std::count(events.log.begin(), events.log.end(), "1"), 1);
  }

  std::unique_ptr<LineLab> lab = GetParam().make();
  LineServiceProvider& lines = lab->Provider();
  RecordingLineEvents events;
};

TEST_P(LineProviderContract, AnAnsweredCallConnectsAndEndsWhenDropped) {
  const std::int32_t handle = lines.MakeCall(0, lab->answered);
  EXPECT_TRUE(events.log.empty());
  ASSERT_TRUE(WaitFor("connected"));
  EXPECT_EQ(events.handle, handle);
  EXPECT_TRUE(Saw("32"));
  EXPECT_EQ(*(events.log.end() - 2), "256");
  EXPECT_FALSE(Saw("1"));
  lines.DropCall(0, events.handle);
  ExpectEnded();
}

TEST_P(LineProviderContract, CallsThatNeverConnectEndByThemselves) {
  const struct {
    const std::string& number;
    bool isBusy;
  } kCases[] = {{lab->busy, true}, {lab->rejected, false}, {lab->unknown, false}};
  for (const auto& test : kCases) {
    SCOPED_TRACE(test.number);
    events.log.clear();
    lines.MakeCall(0, test.number);
    ExpectEnded();
    EXPECT_FALSE(Saw("connected"));
    EXPECT_EQ(Saw("busy"), test.isBusy);
  }
}

TEST_P(LineProviderContract, TheFarEndHangsUp) {
  lines.MakeCall(0, lab->farEndHangsUp);
  ExpectEnded();
  EXPECT_TRUE(Saw("connected"));
}

TEST_P(LineProviderContract, ACallIsDroppedInEveryStage) {
  for (const char* stage : {"", "16", "32"}) {
    SCOPED_TRACE(stage);
    events.log.clear();
    lines.MakeCall(0, lab->noAnswer);
    if (*stage != '\0') {
      ASSERT_TRUE(WaitFor(stage));
    }
    lines.DropCall(0, *stage != '\0' ? events.handle : 0);
    ExpectEnded();
    EXPECT_FALSE(Saw("connected"));
  }
}

TEST_P(LineProviderContract, RefusesWhatALineCannotDo) {
  EXPECT_THROW(lines.DropCall(0, 0), TapiError);
  EXPECT_THROW(lines.LineName(lines.LineCount()), TapiError);
  EXPECT_THROW(lines.OpenLine(-1), TapiError);
  lines.MakeCall(0, lab->noAnswer);
  EXPECT_THROW(lines.MakeCall(0, lab->answered), TapiError);
  EXPECT_THROW(lines.DropCall(0, 1), TapiError);
  lines.CloseLine(0);
  ExpectEnded();
  lines.CloseLine(0);
  EXPECT_THROW(lines.MakeCall(0, lab->answered), TapiError);
}

TEST_P(LineProviderContract, TellsAboutALine) {
  const LineInfo info = lines.Info(0);
  EXPECT_NE(info.callStates & static_cast<std::uint32_t>(kLineCallConnected), 0U);
  EXPECT_NE(info.mediaModes, 0U);
  EXPECT_FALSE(info.addresses.empty());
  EXPECT_FALSE(info.providerInfo.empty());
  EXPECT_GE(info.version, 0x00010003U);
  EXPECT_THROW(lines.Info(lines.LineCount()), TapiError);
  EXPECT_THROW(lines.ShowDialog(lines.LineCount(), LineDialog::kDevice, 0), TapiError);
}

TEST_P(LineProviderContract, NothingIsHeardAfterShutDown) {
  lines.MakeCall(0, lab->answered);
  ASSERT_TRUE(WaitFor("16"));
  lines.ShutDown();
  events.log.clear();
  lab->Settle();
  EXPECT_TRUE(events.log.empty());
  lines.Initialise();
  lines.OpenLine(0);
  lines.MakeCall(0, lab->answered);
  EXPECT_TRUE(WaitFor("connected"));
}

}  // namespace orvane
