#include "platform/lines/linux/sip_lines.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/errors.h"
#include "platform/lines/linux/fake_sip_line_lab.h"

namespace orvane {
namespace {

using Log = std::vector<std::string>;

const Log kAnsweredCall{"16", "32", "256", "connected"};
const Log kEnd{"16384", "disconnected", "1"};

class SipLinesTest : public testing::Test {
 protected:
  SipLinesTest() { lines.SetEvents(&events); }

  void Open() {
    lines.Initialise();
    ASSERT_TRUE(lab.RunUntil([this] { return lines.LineCount() == 2; }));
    lines.OpenLine(0);
  }
  std::string Command(const std::string& start) const {
    for (const auto& command : baresip.Commands()) {
      if (command.starts_with(start)) return command;
    }
    return "";
  }
  bool Saw(const Log& wanted) {
    return lab.RunUntil([&] {
      return std::search(events.log.begin(), events.log.end(), wanted.begin(), wanted.end()) !=
             events.log.end();
    });
  }
  // The line works: a call goes through from dialling to the end.
  void ExpectUsable() {
    events.log.clear();
    lines.MakeCall(0, lab.farEndHangsUp);
    EXPECT_TRUE(Saw(kAnsweredCall));
    EXPECT_TRUE(Saw(kEnd));
  }

  FakeSipLineLab lab;
  FakeBaresip& baresip = lab.Baresip();
  SipLines& lines = static_cast<SipLines&>(lab.Provider());
  RecordingLineEvents events;
};

TEST_F(SipLinesTest, EachAccountIsALineOnce) {
  lines.Initialise();
  lines.Initialise();
  ASSERT_EQ(lines.LineCount(), 2);
  EXPECT_EQ(lines.LineName(0), kAnna);
  EXPECT_EQ(lines.LineName(1), kBert);
}

TEST_F(SipLinesTest, DialsFromTheLinesOwnAccountWhatAnAddressMayHold) {
  lines.Initialise();
  lines.OpenLine(1);
  lines.MakeCall(1, "*21*030#");
  EXPECT_TRUE(Saw({"16", "32"}));
  EXPECT_EQ(Command("dial"), "dial *21*030%23");
  const Log commands = baresip.Commands();
  EXPECT_EQ(*(std::find(commands.begin(), commands.end(), "dial *21*030%23") - 1),
            "uafind " + std::string(kBert));
  EXPECT_EQ(Command("uafind " + std::string(kAnna)), "");
}

TEST_F(SipLinesTest, RefusesNumbersThatAreNone) {
  Open();
  for (const char* number : {"", "030 1", "+4930", "anna@example.org", "%s", "1\n2"}) {
    SCOPED_TRACE(number);
    EXPECT_THROW(lines.MakeCall(0, number), TapiError);
  }
  ExpectUsable();
}

TEST_F(SipLinesTest, ACallThatBaresipRefusesEnds) {
  Open();
  lines.MakeCall(0, "0308");
  EXPECT_TRUE(Saw(kEnd));
  EXPECT_EQ(events.log.size(), kEnd.size());
  ExpectUsable();
}

TEST_F(SipLinesTest, ARefusalTellsItsReasonUnlessItWasHungUpHere) {
  Open();
  lines.MakeCall(0, lab.rejected);
  EXPECT_TRUE(Saw(Log{"32", "REFUSED SIP: 603 Decline"}));
  EXPECT_TRUE(Saw(kEnd));
  for (const std::string& number : {lab.busy, lab.farEndHangsUp, lab.noAnswer}) {
    SCOPED_TRACE(number);
    events.log.clear();
    lines.MakeCall(0, number);
    if (number == lab.noAnswer) {
      ASSERT_TRUE(Saw({"32"}));
      lines.DropCall(0, events.handle);
    }
    EXPECT_TRUE(Saw(kEnd));
    EXPECT_TRUE(std::none_of(events.log.begin(), events.log.end(), [](const std::string& event) {
      return event.starts_with("REFUSED");
    }));
  }
}

TEST_F(SipLinesTest, HangsUpOnlyItsOwnCallAndOnlyOnce) {
  Open();
  lines.OpenLine(1);
  lines.MakeCall(1, lab.noAnswer);
  ASSERT_TRUE(Saw({"32"}));
  events.log.clear();
  lines.MakeCall(0, "0307");
  ASSERT_TRUE(Saw({"16"}));
  lines.DropCall(0, 0);
  ASSERT_TRUE(Saw(kEnd));
  lab.Settle();
  EXPECT_EQ(events.log.size(), 1 + kEnd.size());
  const Log commands = baresip.Commands();
  EXPECT_EQ(std::count(commands.begin(), commands.end(), "hangup"), 1);
  EXPECT_EQ(Command("callfind"), "callfind id2");
}

TEST_F(SipLinesTest, ShutDownHangsUpBeforeItLetsGo) {
  for (const bool dialled : {false, true}) {
    SCOPED_TRACE(dialled);
    Open();
    const auto placed = baresip.Commands().size();
    lines.MakeCall(0, lab.answered);
    if (dialled) {
      ASSERT_TRUE(Saw(kAnsweredCall));
    }
    lines.ShutDown();
    const Log commands = baresip.Commands();
    EXPECT_EQ(std::count(commands.begin() + static_cast<long>(placed), commands.end(), "hangup"),
              dialled ? 1 : 0);
    EXPECT_EQ(lines.LineCount(), 0);
  }
}

TEST_F(SipLinesTest, CallsAtTheTelephoneItselfShowOnTheOpenLine) {
  Open();
  const FakeBaresip::Step established{"CALL_ESTABLISHED", ""};
  baresip.SendEvent(kBert, true, "b1", established);
  baresip.SendEvent("sip:somebody@else.org", true, "x1", established);
  baresip.SendEvent(kAnna, true, "a1", {"CALL_INCOMING", ""});
  baresip.SendEvent(kAnna, true, "a1", {"CALL_CLOSED", "Connection reset by peer"});
  baresip.SendEvent(kAnna, false, "a2", {"CALL_RINGING", ""});
  ASSERT_TRUE(Saw({"32"}));
  EXPECT_EQ(events.log, Log{"32"});
  EXPECT_THROW(lines.MakeCall(0, lab.answered), TapiError);
  EXPECT_THROW(lines.DropCall(0, 0), TapiError);
  baresip.SendEvent(kAnna, false, "a2", established);
  ASSERT_TRUE(Saw({"256", "connected"}));
  lines.DropCall(0, events.handle);
  EXPECT_TRUE(Saw(kEnd));
  ExpectUsable();
}

TEST_F(SipLinesTest, ABaresipThatStartsLateIsFound) {
  baresip.Stop();
  lines.Initialise();
  EXPECT_EQ(lines.LineCount(), 0);
  baresip.Start();
  ASSERT_TRUE(lab.RunUntil([this] { return lines.LineCount() == 2; }));
  lines.OpenLine(0);
  ExpectUsable();
}

TEST_F(SipLinesTest, ABaresipThatDiesEndsItsCallsAndMayReturn) {
  Open();
  lines.MakeCall(0, lab.answered);
  ASSERT_TRUE(Saw(kAnsweredCall));
  baresip.Stop();
  ASSERT_TRUE(Saw(kEnd));
  ASSERT_TRUE(Saw({"OUTOFSERVICE TapiLineDevState"}));
  EXPECT_EQ(lines.LineName(0), kAnna);
  EXPECT_THROW(lines.MakeCall(0, lab.answered), TapiError);
  baresip.Start();
  ASSERT_TRUE(Saw({"INSERVICE TapiLineDevState"}));
  ExpectUsable();
}

TEST_F(SipLinesTest, ReadsWhateverPiecesTheBytesComeIn) {
  baresip.bytewise = true;
  Open();
  ASSERT_EQ(lines.LineCount(), 2);
  ExpectUsable();
}

TEST_F(SipLinesTest, AConnectionThatMakesNoSenseIsMadeAnew) {
  const std::string oversized = "1048577:" + std::string(1000, 'x');
  Open();
  for (const std::string& garbage : {std::string("HTTP/1.1 400 Bad Request\r\n\r\n"), oversized,
                                     std::string("3:{}}x"), std::string(5000, '\0')}) {
    SCOPED_TRACE(garbage.substr(0, 8));
    events.log.clear();
    lines.MakeCall(0, lab.answered);
    ASSERT_TRUE(Saw(kAnsweredCall));
    baresip.Send(garbage);
    ASSERT_TRUE(Saw(kEnd));
    ASSERT_TRUE(Saw({"INSERVICE TapiLineDevState"}));
    ExpectUsable();
  }
}

TEST_F(SipLinesTest, ABaresipThatDoesNotAnswerCountsAsLost) {
  FakeSipLineLab impatient(std::chrono::milliseconds(300));
  impatient.Provider().SetEvents(&events);
  impatient.Provider().Initialise();
  ASSERT_TRUE(impatient.RunUntil([&] { return impatient.Provider().LineCount() == 2; }));
  impatient.Provider().OpenLine(0);
  impatient.Baresip().mute = true;
  impatient.Provider().MakeCall(0, lab.noAnswer);
  impatient.Provider().DropCall(0, 0);
  ASSERT_TRUE(impatient.RunUntil([this] { return events.log.size() >= 4; }));
  EXPECT_EQ(Log(events.log.begin(), events.log.begin() + 4),
            (Log{"16384", "disconnected", "1", "OUTOFSERVICE TapiLineDevState"}));
  impatient.Baresip().mute = false;
  EXPECT_TRUE(impatient.RunUntil([this] { return events.log.size() >= 5; }));
  EXPECT_EQ(events.log[4], "INSERVICE TapiLineDevState");
}

TEST_F(SipLinesTest, MessagesThatMeanNothingChangeNothing) {
  Open();
  lines.MakeCall(0, lab.answered);
  ASSERT_TRUE(Saw(kAnsweredCall));
  const Log before = events.log;
  for (const char* message : {"", "null", "[]", R"({"event":)", R"({"event":true})",
                              R"({"event":true,"type":"NEW_THING","id":"id1"})",
                              R"({"response":true,"ok":true,"data":"sip:x@y.org","token":"77"})",
                              "{\"a\":\"\xff\xfe\"}"}) {
    baresip.Send(EncodeNetstring(message));
  }
  for (const char* type : {"CALL_CLOSED", "CALL_LOCAL_SDP", "VU_TX_REPORT", "CALL_INCOMING"}) {
    baresip.SendEvent(kAnna, false, "unknown", {type, "486 Busy Here"});
    baresip.SendEvent(kAnna, false, "", {type, ""});
  }
  baresip.SendEvent(kAnna, false, "id1", {"CALL_RINGING", ""});
  lab.Settle();
  EXPECT_EQ(events.log, before);
  EXPECT_EQ(lines.LineCount(), 2);
  lines.DropCall(0, events.handle);
  EXPECT_TRUE(Saw(kEnd));
}

}  // namespace
}  // namespace orvane
