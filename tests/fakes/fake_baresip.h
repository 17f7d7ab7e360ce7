#pragma once

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <map>
#include <mutex>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "platform/lines/linux/netstring.h"

namespace orvane {

// A baresip without a telephone: speaks its control protocol on a port of its own, from another
// thread, and plays to each dialled number the course it was given.
class FakeBaresip {
 public:
  // An event of a call, and what it says beside.
  struct Step {
    std::string type;
    std::string param;
  };
  using Courses = std::map<std::string, std::vector<Step>>;

  // Numbers that are not among the courses do not exist.
  FakeBaresip(std::vector<std::string> accounts, Courses courses)
      : accounts_(std::move(accounts)), courses_(std::move(courses)) {
    Start();
  }
  ~FakeBaresip() { Stop(); }
  FakeBaresip(const FakeBaresip&) = delete;
  FakeBaresip& operator=(const FakeBaresip&) = delete;

  std::uint16_t Port() const { return port_; }

  // Starts, always on the same port.
  void Start() {
    current_ = accounts_.front();
    calls_.clear();
    Listen();
    thread_ = std::thread([this] { Serve(); });
  }

  // Dies with its calls.
  void Stop() {
    if (!thread_.joinable()) return;
    shutdown(listener_, SHUT_RDWR);
    HangUpOnPeer();
    thread_.join();
    close(listener_);
  }

  // Any bytes at all, to whoever is connected.
  void Send(std::string_view bytes) {
    const std::lock_guard lock(mutex_);
    const std::size_t step = bytewise ? 1 : bytes.size();
    for (; peer_ >= 0 && !bytes.empty(); bytes.remove_prefix(step)) {
      if (send(peer_, bytes.data(), step, MSG_NOSIGNAL) < 0) return;
    }
  }
  void SendEvent(const std::string& account, bool incoming, const std::string& id,
                 const Step& step) {
    QJsonObject event{{"event", true},
                      {"type", QString::fromStdString(step.type)},
                      {"class", "call"},
                      {"accountaor", QString::fromStdString(account)},
                      {"direction", incoming ? "incoming" : "outgoing"},
                      {"param", QString::fromStdString(step.param)}};
    if (!id.empty()) event["id"] = QString::fromStdString(id);
    Send(event);
  }

  // The commands so far, for example "dial 0301".
  std::vector<std::string> Commands() const {
    const std::lock_guard lock(mutex_);
    return commands_;
  }

  std::atomic<bool> bytewise = false;
  // Takes commands and does not answer.
  std::atomic<bool> mute = false;

 private:
  struct Call {
    std::string account;
    std::string id;
    std::vector<Step> course;
  };
  struct Answer {
    bool ok;
    std::string data;
  };

  void Listen() {
    listener_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int yes = 1;
    setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port_);
    socklen_t size = sizeof address;
    auto* const where = reinterpret_cast<sockaddr*>(&address);
    if (bind(listener_, where, size) != 0 || listen(listener_, 4) != 0 ||
        getsockname(listener_, where, &size) != 0) {
      throw std::runtime_error("no port for the stand-in of baresip");
    }
    port_ = ntohs(address.sin_port);
  }

  void Serve() {
    for (;;) {
      const int peer = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
      if (peer < 0) return;
      const int yes = 1;
      setsockopt(peer, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
      SetPeer(peer);
      Talk(peer);
      SetPeer(-1);
      close(peer);
    }
  }

  void SetPeer(int peer) {
    const std::lock_guard lock(mutex_);
    peer_ = peer;
  }
  void HangUpOnPeer() {
    const std::lock_guard lock(mutex_);
    if (peer_ >= 0) shutdown(peer_, SHUT_RDWR);
  }

  void Talk(int peer) {
    NetstringDecoder decoder(65536);
    std::array<char, 4096> bytes{};
    for (;;) {
      const ssize_t count = recv(peer, bytes.data(), bytes.size(), 0);
      if (count <= 0) return;
      decoder.Add({bytes.data(), static_cast<std::size_t>(count)});
      while (const auto message = decoder.Next()) Obey(*message);
      PlayCourses();
    }
  }

  void Obey(const std::string& message) {
    const QJsonObject command =
        QJsonDocument::fromJson(QByteArray::fromStdString(message)).object();
    const std::string name = command["command"].toString().toStdString();
    const std::string params = command["params"].toString().toStdString();
    {
      const std::lock_guard lock(mutex_);
      commands_.push_back(params.empty() ? name : name + " " + params);
    }
    const auto [ok, data] = Run(name, params);
    if (mute) return;
    Send(QJsonObject{{"response", true},
                     {"ok", ok},
                     {"data", QString::fromStdString(data)},
                     {"token", command["token"]}});
  }

  Answer Run(const std::string& name, const std::string& params) {
    if (name == "reginfo") return {true, AccountList()};
    if (name == "uafind") return SelectAccount(params);
    if (name == "dial") return Dial(params);
    if (name == "callfind") return SelectCall(params);
    if (name == "callstat") return {true, DescribeCall()};
    if (name == "hangup") return HangUp();
    return {false, "command not found (" + name + ")\n"};
  }

  std::string AccountList() const {
    std::string list = "\n--- User Agents ---\n";
    for (const auto& account : accounts_) {
      list += (account == current_ ? "> " : "  ") + account + "          OK \n";
    }
    return list + "\n";
  }
  Answer SelectAccount(const std::string& account) {
    if (std::find(accounts_.begin(), accounts_.end(), account) == accounts_.end()) {
      return {false, "No such file or directory"};
    }
    current_ = account;
    return {true, "ua: " + account + "\n"};
  }
  Answer Dial(const std::string& number) {
    const auto course = courses_.find(number);
    calls_.push_back({current_, "id" + std::to_string(++lastId_),
                      course != courses_.end()
                          ? course->second
                          : std::vector<Step>{{"CALL_CLOSED", "404 Not Found"}}});
    if (!calls_.back().course.empty() && calls_.back().course.front().type == "REFUSED") {
      calls_.pop_back();
      return {false, "Cannot allocate memory"};
    }
    SendEvent(current_, false, "", {"CALL_LOCAL_SDP", "offer"});
    return {true, ""};
  }
  Answer SelectCall(const std::string& id) {
    const auto call = std::find_if(calls_.begin(), calls_.end(),
                                   [&id](const Call& candidate) { return candidate.id == id; });
    if (call == calls_.end() || call->account != current_) {
      return {true, "call not found (id=" + id + ")\n"};
    }
    std::rotate(call, call + 1, calls_.end());
    return {true, "setting current call: " + id + "\n"};
  }
  std::string DescribeCall() {
    const auto call = CurrentCall();
    if (call == calls_.rend()) return "\n(no active calls)\n";
    return "\n===== Call debug (OUTGOING) =====\n af=AF_INET id=" + call->id +
           "\n direction: Outgoing\n";
  }
  Answer HangUp() {
    const auto call = CurrentCall();
    if (call != calls_.rend()) CloseCall(call->id, "Connection reset by user");
    return {true, ""};
  }
  std::vector<Call>::reverse_iterator CurrentCall() {
    return std::find_if(calls_.rbegin(), calls_.rend(),
                        [this](const Call& call) { return call.account == current_; });
  }
  void CloseCall(const std::string& id, const std::string& reason) {
    const auto call = std::find_if(calls_.begin(), calls_.end(),
                                   [&id](const Call& candidate) { return candidate.id == id; });
    const Call closed = *call;
    calls_.erase(call);
    SendEvent(closed.account, false, id, {"CALL_CLOSED", reason});
  }

  void PlayCourses() {
    const std::vector<Call> calls = calls_;
    for (const Call& call : calls) {
      for (const Step& step : call.course) {
        if (step.type == "CALL_CLOSED") {
          CloseCall(call.id, step.param);
        } else {
          SendEvent(call.account, false, call.id, step);
        }
      }
    }
    for (Call& call : calls_) call.course.clear();
  }

  void Send(const QJsonObject& object) {
    Send(EncodeNetstring(QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString()));
  }

  std::vector<std::string> accounts_;
  Courses courses_;
  std::uint16_t port_ = 0;
  int listener_ = -1;
  std::thread thread_;
  // Of the thread: the selected account, the calls with the current one last.
  std::string current_;
  std::vector<Call> calls_;
  int lastId_ = 0;

  mutable std::mutex mutex_;
  int peer_ = -1;
  std::vector<std::string> commands_;
};

}  // namespace orvane
