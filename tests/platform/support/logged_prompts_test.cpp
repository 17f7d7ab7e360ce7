#include "platform/support/logged_prompts.h"

#include <gtest/gtest.h>

#include "fakes/fake_prompts.h"
#include "platform/support/log_masking.h"

namespace orvane {
namespace {

class MaskingLog : public SupportLog {
 public:
  bool Listening() const override { return true; }
  void Tell(LogTopic /*topic*/, std::initializer_list<LogPart> parts) override {
    for (const LogPart& part : parts) text += Masked(part);
    text += '\n';
  }

  std::string text;
};

TEST(LoggedPrompts, AReportReadsAsOnTheScreenWithoutWhatItQuotes) {
  FakePrompts screen;
  MaskingLog log;
  LoggedPrompts prompts(screen, log);
  const std::string markup =
      R"(Fehler 5, Prozedur: "DialTAPI"<br>A &amp; B &lt; C: "Meier, Eva" fehlt)";
  prompts.ShowMarkup(PromptIcon::kExclamation, markup, "Brisko");
  EXPECT_TRUE(
      log.text.starts_with("[Brisko] Fehler 5, Prozedur: \"DialTAPI\" A & B < C: \"…\" "
                           "fehlt\n[Brisko] geschlossen nach "))
      << log.text;
  EXPECT_EQ(screen.markups.back().text, markup);
}

}  // namespace
}  // namespace orvane
