#include "platform/support/logged_prompts.h"

#include <utility>

#include "platform/text/stopwatch.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

// As it reads on the screen.
std::string PlainText(std::string text) {
  for (const auto& [markup, plain] : {std::pair{"<br>", " "}, {"&lt;", "<"}, {"&amp;", "&"}}) {
    text = ReplaceAll(text, markup, plain);
  }
  return text;
}

}  // namespace

void LoggedPrompts::ShowMessage(PromptIcon icon, const std::string& text,
                                const std::string& title) {
  log_.Tell(LogTopic::kBox, {"[", title, "] ", {LogPart::Kind::kDetail, text}});
  const Stopwatch watch;
  screen_.ShowMessage(icon, text, title);
  log_.Tell(LogTopic::kBox, {"[", title, "] geschlossen nach ", watch.Text()});
}

void LoggedPrompts::ShowMarkup(PromptIcon icon, const std::string& markup,
                               const std::string& title) {
  const std::string text = PlainText(markup);
  log_.Tell(LogTopic::kBox, {"[", title, "] ", {LogPart::Kind::kDetail, text}});
  const Stopwatch watch;
  screen_.ShowMarkup(icon, markup, title);
  log_.Tell(LogTopic::kBox, {"[", title, "] geschlossen nach ", watch.Text()});
}

}  // namespace orvane
