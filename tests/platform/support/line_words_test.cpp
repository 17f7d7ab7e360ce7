#include "platform/support/line_words.h"

#include <gtest/gtest.h>

namespace orvane {
namespace {

TEST(LineWords, SayWhatAMessageMeansAndKeepIt) {
  const struct {
    LineMessage message;
    const char* text;
  } kCases[] = {
      {{"FAILED", "TapiMakeCall", -5},
       "das Wählen ist gescheitert: Fehler -5 (0xFFFFFFFB) (FAILED TapiMakeCall -5)"},
      {{"FAILED", "TapiLineDrop", -5},
       "das Trennen ist gescheitert: Fehler -5 (0xFFFFFFFB) (FAILED TapiLineDrop -5)"},
      {{"REFUSED", "TapiMakeCall", 4},
       "der Anruf kam nicht zustande, abgewiesen (REFUSED TapiMakeCall 4)"},
      {{"REFUSED", "SIP: 603 Decline", 603},
       "der Anruf kam nicht zustande (REFUSED SIP: 603 Decline 603)"},
      {{"OUTOFSERVICE", "TapiLineDevState", 128},
       "Ausfall: die Leitungen sind außer Betrieb (OUTOFSERVICE TapiLineDevState 128)"},
      {{"ODD", "TapiOther", 7}, "Meldung (ODD TapiOther 7)"},
  };
  for (const auto& [message, text] : kCases) EXPECT_EQ(LineMessageText(message), text);
}

TEST(LineWords, AStateWithoutAWordHasItsNumber) {
  EXPECT_EQ(CallStateText(0x100), "verbunden (0x100)");
  EXPECT_EQ(CallStateText(0x2000), "0x2000");
}

}  // namespace
}  // namespace orvane
