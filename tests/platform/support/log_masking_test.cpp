#include "platform/support/log_masking.h"

#include <gtest/gtest.h>

namespace orvane {
namespace {

using Kind = LogPart::Kind;

TEST(LogMasking, HidesWhomTheUserCalls) {
  const struct {
    Kind kind;
    const char* text;
    const char* masked;
  } kCases[] = {
      {Kind::kPlain, "COM3 0301234567", "COM3 0301234567"},
      {Kind::kNumber, "030 / 12 34-567", "*** / ** **-567"},
      {Kind::kNumber, "217", "217"},
      {Kind::kNumber, "+49 (30) 1234*#", "+** (**) *234*#"},
      {Kind::kModem, "ATDT 0301234567", "ATDT *******567"},
      {Kind::kModem, "COM3 öffnen", "COM3 öffnen"},
      {Kind::kName, "Muster & Söhne", "…"},
      {Kind::kName, "", ""},
      {Kind::kLineName, "ISDN-Karte, Kanal 1", "ISDN-Karte, Kanal 1"},
      {Kind::kLineName, "sip:eva.meier@pbx.local", "sip:…@pbx.local"},
      {Kind::kMessage, "TX:17", "TX:17"},
      {Kind::kMessage, "17", "17"},
      {Kind::kMessage, "TX:17~Dial~1|030 12 34|Muster GmbH|Meier, Eva|Bonn|47|12",
       "TX:17~Dial~1|*** *2 34|…|…|…|47|12"},
      {Kind::kMessage, "TX:5~Dial~0|KillMySelf|x", "TX:5~Dial~0|KillMySelf|…"},
      {Kind::kMessage, "TX:17~TAPI_ReInit~sip:eva@pbx", "TX:17~TAPI_ReInit~sip:…@pbx"},
      {Kind::kMessage, "TX:17~Wahl~0301234567|Meier", "TX:17~…~…|…"},
      {Kind::kMessage, "TX:17~0301234567", "TX:17~…"},
      {Kind::kMessage, "TX:0301234567890", "TX:…"},
      {Kind::kMessage, "Meier, Eva~Dial~1|0301234", "…~Dial~1|****234"},
      {Kind::kMessage, "TX:1~Dial~0301234567|1|2||x|0301234567|Meier", "TX:1~Dial~…|1|…||…|…|…"},
      {Kind::kMessage, "TX:17~Dial~1|030 1234567|A~Z Reisen|Frau Muster|Bonn|47|12",
       "TX:17~Dial~1|*** ****567|…~…"},
      {Kind::kMessage, "TX:17~Dial~1|0301~Meier|Frau Muster~Dial~1|0301",
       "TX:17~Dial~1|*301~…~…~…"},
      {Kind::kMessage, "TX:Dial~1|0301234567|Muster GmbH|Meier", "TX:…~…"},
      {Kind::kNumber, "030 1234 Frau Meier", "*** *234 …"},
      {Kind::kLineName, "ISDN 030 123456, Kanal 1", "ISDN *** ***456, Kanal 1"},
      {Kind::kMessage, "", ""},
      {Kind::kDetail, "near \"Meier\": syntax error", "near \"…\": syntax error"},
      {Kind::kDetail, "Datei 'C:\\Daten\\TelList.fdb' gesperrt (5)",
       "Datei 'C:\\Daten\\TelList.fdb' gesperrt (5)"},
      {Kind::kDetail, "ohne Ende 'Meier", "ohne Ende '…"},
      {Kind::kDetail, "near \"030/1234567\" und 'Müller/Schmidt' und ''",
       "near \"…\" und '…' und ''"},
      {Kind::kDetail, "'RawTel1='0301234567' OR", "'…'*******567'…"},
      {Kind::kDetail, "Fehler -2147467259 (0x80004005), 40009",
       "Fehler -2147467259 (0x80004005), 40009"},
      {Kind::kDetail, "Datei '/home/eva.meier/talmix/x.fdb'", "Datei '/home/…/talmix/x.fdb'"},
      {Kind::kDetail, "Datei '\\home\\eva\\talmix\\x.fdb'", "Datei '\\home\\…\\talmix\\x.fdb'"},
      {Kind::kPath, "C:\\Users\\Eva Meier\\Talmix\\", "C:\\Users\\…\\Talmix\\"},
      {Kind::kPath, "T:\\Talmix\\Daten\\", "T:\\Talmix\\Daten\\"},
      {Kind::kDetail, "Prozedur: \"DialTAPI\", bei \"Meier\"", "Prozedur: \"DialTAPI\", bei \"…\""},
  };
  for (const auto& [kind, text, masked] : kCases) EXPECT_EQ(Masked({kind, text}), masked) << text;
}

}  // namespace
}  // namespace orvane
