#include "journal/tel_list.h"

#include <deque>
#include <exception>
#include <mutex>
#include <optional>
#include <utility>

#include "journal/journal_statements.h"
#include "journal/open_failure.h"
#include "platform/errors.h"

namespace orvane {

// What stood in the way of writing or reading and was not told to the user yet. A failure that no
// part of the system has described has no error.
class TelList::Failures {
 public:
  void Add(std::optional<PlatformError> failure) {
    const std::lock_guard lock(mutex_);
    failures_.push_back(std::move(failure));
  }
  std::deque<std::optional<PlatformError>> Take() {
    const std::lock_guard lock(mutex_);
    return std::exchange(failures_, {});
  }

 private:
  std::mutex mutex_;
  std::deque<std::optional<PlatformError>> failures_;
};

TelList::TelList(DatabaseServices& databases, FolderLocks& locks, Background& background,
                 Prompts& prompts, WorkQueue& queue, SupportLog& log)
    : background_(background),
      prompts_(prompts),
      queue_(queue),
      file_(std::make_shared<JournalFile>(databases, locks, log,
                                          [this](const PlatformError& e) { Tell(e); })),
      failures_(std::make_shared<Failures>()) {}

void TelList::Do(std::function<void(JournalFile&)> work) {
  background_.Do([this, work = std::move(work), file = file_] {
    try {
      work(*file);
    } catch (const PlatformError& error) {
      Tell(error);
    } catch (const std::exception&) {
      Tell(std::nullopt);
    }
  });
}

void TelList::Tell(std::optional<PlatformError> failure) {
  failures_->Add(std::move(failure));
  background_.Tell([this] { queue_.Submit([this] { ShowFailures(); }); });
}

void TelList::ShowFailures() {
  for (const auto& failure : failures_->Take()) {
    if (failure) {
      ShowOpenFailure(prompts_, *failure, "ReopenTelDB",
                      "Telefonliste konnte nicht initialisiert werden!");
    } else {
      prompts_.ShowMessage(PromptIcon::kExclamation,
                           "Telefondatenbank konnte nicht initialisiert werden.",
                           "Zugriffsfehler bei 'Perch: TelList'");
    }
  }
}

NewCall TelList::Insert(const std::string& userPath, NewCall call) {
  NewCall stored = WithStoredTexts(std::move(call));
  Do([userPath, stored](JournalFile& file) { file.Insert(userPath, stored); });
  return stored;
}

void TelList::Complete(const std::string& userPath, EndedCall call) {
  Do([userPath, call = std::move(call)](JournalFile& file) { file.Complete(userPath, call); });
}

void TelList::CompactTelList(const std::string& userPath) {
  Do([userPath](JournalFile& file) { file.CompactTelList(userPath); });
}

template <typename Result>
void TelList::Ask(std::function<Result(JournalFile&)> work, std::function<void(Result)> done) {
  auto result = std::make_shared<Result>();
  Do([work = std::move(work), result](JournalFile& file) { *result = work(file); });
  // A message box about what stood in the way comes first.
  background_.Do([this, result, done = std::move(done)] {
    background_.Tell(
        [this, result, done] { queue_.Submit([result, done] { done(std::move(*result)); }); });
  });
}

void TelList::Read(const std::string& userPath, const std::string& query,
                   std::function<void(std::vector<JournalCall>)> done) {
  Ask<std::vector<JournalCall>>(
      [userPath, query](JournalFile& file) { return file.Read(userPath, query); }, std::move(done));
}

void TelList::ReadDurations(const std::string& userPath, CallDirection direction,
                            std::function<void(std::vector<JournalDuration>)> done) {
  Ask<std::vector<JournalDuration>>(
      [userPath, direction](JournalFile& file) { return file.ReadDurations(userPath, direction); },
      std::move(done));
}

void TelList::Renew() {
  Do([](JournalFile& file) { file.Renew(); });
}

bool TelList::Finish(std::chrono::milliseconds within) {
  const bool finished = background_.Finish(within);
  ShowFailures();
  return finished;
}

}  // namespace orvane
