#include "platform/support/support_log_file.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <thread>

#include "fakes/fixed_clock.h"
#include "fakes/temporary_folder.h"

namespace orvane {
namespace {

using Lines = std::vector<std::string>;
using Kind = LogPart::Kind;

constexpr const char* kHeader = "2024-04-03 09:05:07.000 Programm  Orvane, TX:17";

class SupportLogFileTest : public testing::Test {
 protected:
  std::unique_ptr<SupportLogFile> Open(bool masked = true, SupportLogFile::Limits limits = {}) {
    auto log = std::make_unique<SupportLogFile>(
        folder_ / "Orvane", std::initializer_list<LogPart>{"Orvane, ", {Kind::kMessage, "TX:17"}},
        masked, clock_, limits);
    log->Begin();
    return log;
  }
  Lines Read(const char* name = "Orvane.log") const {
    std::ifstream file(folder_ / "Orvane" / name);
    Lines lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
  }

  // Waits until so many lines stand behind the header.
  void RunOut(std::size_t lines) const {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (Read().size() <= lines && std::chrono::steady_clock::now() < limit) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  }

  TemporaryFolder folder_;
  FixedClock clock_;
};

TEST_F(SupportLogFileTest, HoldsTheHeaderAndEachLineWithItsMoment) {
  for (const bool masked : {true, false}) {
    const auto log = Open(masked);
    EXPECT_TRUE(log->Listening());
    log->Tell(LogTopic::kModem, {"gesendet: ", {Kind::kModem, "ATDT 0301234\r"}});
    clock_.now.millisecond = 42;
    log->Tell(LogTopic::kBox, {"zwei\r\nZeilen"});
    clock_.now.millisecond = 0;
  }
  EXPECT_EQ(Read(), (Lines{kHeader, "2024-04-03 09:05:07.000 Modem     gesendet: ATDT ****234 ",
                           "2024-04-03 09:05:07.042 Meldung   zwei  Zeilen", kHeader,
                           "2024-04-03 09:05:07.000 Modem     gesendet: ATDT 0301234 ",
                           "2024-04-03 09:05:07.042 Meldung   zwei  Zeilen"}));
}

// A second start hands its text over and goes.
TEST_F(SupportLogFileTest, LeavesNoTraceUnlessItBegins) {
  SupportLogFile messenger(folder_ / "Orvane", {"Orvane"}, true, clock_, {});
  EXPECT_TRUE(messenger.Listening());
  messenger.Tell(LogTopic::kProgram, {"vorher"});
  EXPECT_FALSE(std::filesystem::exists(folder_ / "Orvane"));
  messenger.Begin();
  messenger.Tell(LogTopic::kProgram, {"nachher"});
  RunOut(2);
  EXPECT_EQ(Read().size(), 3U);
}

TEST_F(SupportLogFileTest, KeepsThreeFullFilesThatEachBeginWithTheHeader) {
  constexpr std::uintmax_t kBytes = 300;
  for (int run = 0; run < 2; ++run) {
    const auto log = Open(true, {kBytes, 3});
    for (int n = 0; n < 40; ++n) log->Tell(LogTopic::kCall, {std::to_string(run * 40 + n)});
  }
  for (const char* name : {"Orvane.log", "Orvane.1.log", "Orvane.2.log", "Orvane.3.log"}) {
    const Lines lines = Read(name);
    ASSERT_FALSE(lines.empty()) << name;
    EXPECT_EQ(lines.front(), kHeader);
    EXPECT_NE(lines.at(1), kHeader);
    EXPECT_LE(std::filesystem::file_size(folder_ / "Orvane" / name), kBytes);
  }
  EXPECT_TRUE(Read("Orvane.4.log").empty());
  EXPECT_TRUE(Read().back().ends_with(" 79"));
}

// What was told before a crash has reached the system at once, without the log's end.
TEST_F(SupportLogFileTest, AnEndedProgramLeavesWhatItTold) {
  const auto log = Open();
  log->Tell(LogTopic::kProgram, {"vorher"});
  RunOut(1);
  EXPECT_EQ(Read().size(), 2U);
}

TEST_F(SupportLogFileTest, EndsWithoutAWordWhereNothingCanBeWritten) {
  std::ofstream(folder_ / "Orvane") << "a file in the folder's place";
  const auto log = Open();
  const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(5);
  while (log->Listening() && std::chrono::steady_clock::now() < limit) {
    log->Tell(LogTopic::kProgram, {"umsonst"});
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  EXPECT_FALSE(log->Listening());
}

}  // namespace
}  // namespace orvane
