#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/work_queue.h"
#include "journal/journal_entry.h"
#include "journal/journal_file.h"
#include "platform/background.h"
#include "platform/prompts.h"

namespace orvane {

// The call journals of the host's users. What is to be written is handed over and done beside the
// window's thread, in order; nobody waits for it. A failure's message box appears, through the work
// queue, when the failure is known. A folder is that of HostEnvironment::userPath.
class TelList {
 public:
  // Everything referred to outlives the journal.
  TelList(DatabaseServices& databases, FolderLocks& locks, Background& background, Prompts& prompts,
          WorkQueue& queue, SupportLog& log);

  // A call begins; the result is the call with the texts that are stored where it had none.
  NewCall Insert(const std::string& userPath, NewCall call);
  // A call ends that was connected or busy.
  void Complete(const std::string& userPath, EndedCall call);
  // Compacts a file that has grown too large.
  void CompactTelList(const std::string& userPath);

  // Hands the rows of a query to `done`, through the work queue, after what was to be written
  // before: none, after a message box, when the journal cannot be opened; those before the failure
  // when reading fails.
  void Read(const std::string& userPath, const std::string& query,
            std::function<void(std::vector<JournalCall>)> done);

  // How long the calls of a direction took, alike.
  void ReadDurations(const std::string& userPath, CallDirection direction,
                     std::function<void(std::vector<JournalDuration>)> done);

  // Goes on with a fresh connection.
  void Renew();

  // Waits until all is written, at most so long, and tells what could not be; false when it is not.
  bool Finish(std::chrono::milliseconds within);

 private:
  class Failures;

  // Does the work with the file beside the window's thread; what it throws is told.
  void Do(std::function<void(JournalFile&)> work);
  void Tell(std::optional<PlatformError> failure);
  void ShowFailures();
  // Does the work and hands what it gives to `done`.
  template <typename Result>
  void Ask(std::function<Result(JournalFile&)> work, std::function<void(Result)> done);

  Background& background_;
  Prompts& prompts_;
  WorkQueue& queue_;
  // Shared with work that may still be under way when the program ends.
  std::shared_ptr<JournalFile> file_;
  std::shared_ptr<Failures> failures_;
};

}  // namespace orvane
