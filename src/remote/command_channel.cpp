#include "remote/command_channel.h"

#include <exception>
#include <stdexcept>
#include <vector>

#include "app/field_splitter.h"
#include "app/host_paths.h"
#include "app/number_text.h"
#include "dialing/number_preparation.h"
#include "platform/text/text_tools.h"
#include "remote/copy_data_text.h"

namespace orvane {
namespace {

constexpr std::size_t kPrefixCharacters = 3;

// The parameters after "Dial", by position; those that are missing behind the number are empty.
struct DialParameters {
  explicit DialParameters(const std::string& text) : parts_(Split(text, '|')) {
    if (parts_.size() <= kNumber) throw std::out_of_range("no number to dial");
  }
  std::string Text(std::size_t position) const {
    return position < parts_.size() ? parts_[position] : std::string();
  }
  std::int32_t Number(std::size_t position) const {
    return RoundToInt32(LeadingNumber(Text(position)));
  }

  static constexpr std::size_t kExtern = 0;
  static constexpr std::size_t kNumber = 1;
  static constexpr std::size_t kCompany = 2;
  static constexpr std::size_t kPerson = 3;
  static constexpr std::size_t kPlace = 4;
  static constexpr std::size_t kAddressKey = 5;
  static constexpr std::size_t kPersonKey = 6;

 private:
  std::vector<std::string> parts_;
};

bool IsDigitsOnly(const std::string& text) {
  return text.find_first_not_of(kDigits) == std::string::npos;
}

// The fields behind the prefix, which is skipped without a look. A second start sends a bare user
// number; that and an empty remainder hold no fields.
std::vector<std::string> FieldsOf(const std::string& text) {
  const std::string skipped = FirstCharacters(text, kPrefixCharacters);
  const std::string rest = text.substr(skipped.size());
  if (rest.empty() || IsDigitsOnly(text)) return {};
  return Split(rest, '~');
}

}  // namespace

void CommandChannel::HookWindow(std::uintptr_t window, const std::string& caption) {
  if (hooked_) return;
  hooked_ = true;
  channel_.Hook(
      window, caption,
      [this](const CopyData& data, const HostChannel::Handled& handled) {
        queue_.Submit([this, data, handled] {
          OnCopyData(data);
          handled();
        });
      },
      [this] { queue_.Submit([this] { panel_.Show(); }); });
}

void CommandChannel::UnhookWindow() {
  hooked_ = false;
  channel_.Unhook();
}

void CommandChannel::OnCopyData(const CopyData& data) {
  const auto text = CopyDataText(data);
  if (!text) {
    log_.Tell(LogTopic::kHost, {"abgelehnt: nicht die Kennung des Talmix"});
    return;
  }
  state_.host.startArgs = FieldsOf(*text);
  ++generation_;
  if (GetField(*text, 2, "|") == "KillMySelf") {
    panel_.Unload();
  } else {
    ExecuteCommands();
  }
}

void CommandChannel::ExecuteCommands() {
  try {
    RunCommands();
  } catch (const std::exception&) {
    // A missing field or a number out of range ends the commands; the host expects no answer.
    log_.Tell(LogTopic::kHost, {state_.host.startArgs.empty()
                                    ? "ohne Befehl"
                                    : "abgelehnt: ein Feld fehlt, oder eine Zahl ist zu groß"});
  }
}

void CommandChannel::RunCommands() {
  const std::vector<std::string> fields = state_.host.startArgs;
  const unsigned generation = generation_;
  const std::int32_t user = RoundToInt32(LeadingNumber(fields.at(0)));
  if (user != state_.host.userNumber || state_.host.userPath.empty()) SetUser(user);
  if (fields.size() == 1) {
    panel_.Show();
    return;
  }
  for (std::size_t i = 1; i < fields.size(); i += 2) {
    const std::string& parameters = fields.at(i + 1);
    const bool wasLoaded = panel_.IsLoaded();
    queue_.Yield([this] { loop_.RunPendingOnce(); });
    // A message that came meanwhile has replaced these commands; a window that was closed meanwhile
    // must not come up again.
    if (generation_ != generation || panel_.IsLoaded() != wasLoaded) return;
    if (fields[i] == "Dial") {
      Dial(parameters);
    } else {
      log_.Tell(LogTopic::kHost, {"abgelehnt: unbekannter Befehl"});
      prompts_.ShowMessage(PromptIcon::kExclamation, "Der Schlüsselbefehl existiert nicht!",
                           "Fehler 87117");
    }
  }
}

void CommandChannel::SetUser(std::int32_t number) {
  state_.host.userNumber = number;
  state_.host.userPath = UserFolder(state_.host, number);
  if (!panel_.IsLoaded()) {
    panel_.Load();
    return;
  }
  panel_.ReloadSettings();
}

void CommandChannel::Dial(const std::string& parameterText) {
  const DialParameters parameters(parameterText);
  const std::string number = parameters.Text(DialParameters::kNumber);
  panel_.Load();
  if (!number.empty() && !session_.On() && panel_.NumberEnabled()) {
    panel_.SetNumberText(number);
    session_.HandIn(
        {parameters.Text(DialParameters::kCompany), parameters.Text(DialParameters::kPlace),
         parameters.Text(DialParameters::kPerson), parameters.Number(DialParameters::kAddressKey),
         parameters.Number(DialParameters::kPersonKey)},
        panel_.NumberText());
    panel_.SetExternTicked(LeadingNumber(parameters.Text(DialParameters::kExtern)) != 0);
  } else {
    log_.Tell(LogTopic::kHost,
              {"nicht übernommen: ", number.empty()  ? "ohne Nummer"
                                     : session_.On() ? "es läuft ein Gespräch"
                                                     : "das Nummernfeld ist gesperrt"});
  }
  panel_.Show();
}

}  // namespace orvane
