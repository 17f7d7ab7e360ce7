#pragma once

#include <memory>

#include "platform/support/logged_channel.h"
#include "platform/support/logged_databases.h"
#include "platform/support/logged_lines.h"
#include "platform/support/logged_prompts.h"
#include "platform/support/logged_serial.h"

namespace orvane {

// Puts the log before a program's system. Each part of the system stays itself while nobody is
// interested, so that it costs nothing.
class LoggedSystem {
 public:
  // The log and all parts outlive this.
  explicit LoggedSystem(SupportLog& log) : log_(log) {}

  Prompts& Told(Prompts& plain) { return Kept(prompts_, plain); }
  SerialControl& Told(SerialControl& plain) { return Kept(serial_, plain); }
  TapiControl& Told(TapiControl& plain) { return Kept(lines_, plain); }
  HostChannel& Told(HostChannel& plain) { return Kept(channel_, plain); }
  DatabaseServices& Told(DatabaseServices& plain) { return Kept(databases_, plain); }
  // Those of the journal, beside the others.
  DatabaseServices& ToldOfJournal(DatabaseServices& plain) { return Kept(journals_, plain); }

 private:
  template <typename Logged, typename Plain>
  Plain& Kept(std::unique_ptr<Logged>& keeper, Plain& plain) {
    if (!log_.Listening()) return plain;
    keeper = std::make_unique<Logged>(plain, log_);
    return *keeper;
  }

  SupportLog& log_;
  std::unique_ptr<LoggedPrompts> prompts_;
  std::unique_ptr<LoggedSerial> serial_;
  std::unique_ptr<LoggedLines> lines_;
  std::unique_ptr<LoggedChannel> channel_;
  std::unique_ptr<LoggedDatabases> databases_;
  std::unique_ptr<LoggedDatabases> journals_;
};

}  // namespace orvane
