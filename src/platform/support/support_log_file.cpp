#include "platform/support/support_log_file.h"

#include <array>
#include <atomic>
#include <condition_variable>
#include <cstdio>
#include <deque>
#include <fstream>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/support/log_masking.h"

namespace orvane {
namespace {

constexpr std::chrono::seconds kFarewell{2};
// More lines than any second has; a disk that hangs must not fill the memory.
constexpr std::size_t kMostWaitingLines = 10'000;

const char* TopicText(LogTopic topic) {
  switch (topic) {
    case LogTopic::kProgram:
      return "Programm  ";
    case LogTopic::kHost:
      return "Talmix    ";
    case LogTopic::kCall:
      return "Anruf     ";
    case LogTopic::kLine:
      return "Leitung   ";
    case LogTopic::kModem:
      return "Modem     ";
    case LogTopic::kDatabase:
      return "Datenbank ";
    case LogTopic::kBox:
      break;
  }
  return "Meldung   ";
}

std::string MomentText(const LocalTime& time) {
  std::array<char, 80> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d.%03d ", time.year,
                time.month, time.day, time.hour, time.minute, time.second, time.millisecond);
  return text.data();
}

}  // namespace

// What the thread needs; lines are handed over in order.
class SupportLogFile::Writer {
 public:
  Writer(std::filesystem::path folder, std::string header, Limits limits)
      : folder_(std::move(folder)), header_(std::move(header)), limits_(limits) {}

  bool Alive() const { return alive_; }

  void Add(std::string line) {
    const std::lock_guard lock(mutex_);
    if (lines_.size() >= kMostWaitingLines) return;
    lines_.push_back(std::move(line));
    changed_.notify_all();
  }

  // The thread may outlive the log. MinGW's threads do not bear being detached while they end, so
  // it does not go on before it is.
  static void Start(const std::shared_ptr<Writer>& writer) {
    const std::lock_guard detaching(writer->mutex_);
    try {
      std::thread([writer] { writer->Run(); }).detach();
      writer->ended_ = false;
    } catch (const std::system_error&) {
      writer->alive_ = false;
    }
  }

  void Run() {
    std::unique_lock lock(mutex_);
    Open();
    while (true) {
      changed_.wait(lock, [this] { return ending_ || !lines_.empty(); });
      if (lines_.empty()) break;
      const std::deque<std::string> batch = std::exchange(lines_, {});
      lock.unlock();
      for (const std::string& line : batch) Write(line);
      // What the system has is safe from a crash of the program.
      if (alive_ && !file_.flush()) alive_ = false;
      lock.lock();
    }
    ended_ = true;
    changed_.notify_all();
  }

  void End() {
    std::unique_lock lock(mutex_);
    ending_ = true;
    changed_.notify_all();
    changed_.wait_for(lock, kFarewell, [this] { return ended_; });
  }

 private:
  std::filesystem::path File(int age) const {
    return folder_ / (age == 0 ? "Orvane.log" : "Orvane." + std::to_string(age) + ".log");
  }

  void Open() {
    std::error_code error;
    std::filesystem::create_directories(folder_, error);
    written_ = std::filesystem::file_size(File(0), error);
    if (error) written_ = 0;
    if (written_ + header_.size() >= limits_.bytes) {
      Rotate();
    } else {
      OpenFile();
    }
  }

  void OpenFile() {
    file_.open(File(0), std::ios::app | std::ios::binary);
    file_ << header_ << '\n';
    written_ += header_.size() + 1;
    if (!file_.flush()) alive_ = false;
  }

  void Write(const std::string& line) {
    if (!alive_) return;
    if (written_ + line.size() >= limits_.bytes) Rotate();
    file_ << line << '\n';
    written_ += line.size() + 1;
    if (!file_) alive_ = false;
  }

  void Rotate() {
    file_.close();
    std::error_code error;
    std::filesystem::remove(File(limits_.kept), error);
    for (int age = limits_.kept; age > 0; --age) {
      std::filesystem::rename(File(age - 1), File(age), error);
    }
    // The last one moved the file itself; where that fails, it would grow without end.
    if (error) alive_ = false;
    written_ = 0;
    OpenFile();
  }

  const std::filesystem::path folder_;
  const std::string header_;
  const Limits limits_;
  std::ofstream file_;
  std::uintmax_t written_ = 0;
  std::atomic<bool> alive_ = true;

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::string> lines_;
  bool ending_ = false;
  // Nothing is waited for before it begins.
  bool ended_ = true;
};

SupportLogFile::SupportLogFile(std::filesystem::path folder, std::initializer_list<LogPart> header,
                               bool masked, const Clock& clock, Limits limits)
    : masked_(masked),
      clock_(clock),
      writer_(std::make_shared<Writer>(
          std::move(folder), MomentText(clock.Now().local) + "Programm  " + Line(header), limits)) {
}

void SupportLogFile::Begin() {
  Writer::Start(writer_);
}

SupportLogFile::~SupportLogFile() {
  writer_->End();
}

bool SupportLogFile::Listening() const {
  return writer_->Alive();
}

void SupportLogFile::Tell(LogTopic topic, std::initializer_list<LogPart> parts) {
  if (!Listening()) return;
  writer_->Add(MomentText(clock_.Now().local) + TopicText(topic) + Line(parts));
}

// A line of the log is one line of the file.
std::string SupportLogFile::Line(std::initializer_list<LogPart> parts) const {
  std::string line;
  for (const LogPart& part : parts) {
    for (const char c : masked_ ? Masked(part) : std::string(part.text)) {
      line += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
    }
  }
  return line;
}

}  // namespace orvane
