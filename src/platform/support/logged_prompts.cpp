#include "platform/support/logged_prompts.h"

#include "platform/text/stopwatch.h"
#include "platform/text/text_tools.h"

namespace orvane {

void LoggedPrompts::ShowMessage(PromptIcon icon, const std::string& text,
                                const std::string& title) {
  log_.Tell(LogTopic::kBox, {"[", title, "] ", {LogPart::Kind::kDetail, text}});
  const Stopwatch watch;
  screen_.ShowMessage(icon, text, title);
  log_.Tell(LogTopic::kBox, {"[", title, "] geschlossen nach ", watch.Text()});
}

void LoggedPrompts::ShowMarkup(PromptIcon icon, const std::string& markup,
                               const std::string& title) {
  log_.Tell(LogTopic::kBox, {"[", title, "] ", ReplaceAll(markup, "<br>", " ")});
  const Stopwatch watch;
  screen_.ShowMarkup(icon, markup, title);
  log_.Tell(LogTopic::kBox, {"[", title, "] geschlossen nach ", watch.Text()});
}

}  // namespace orvane
