#include "platform/lines/linux/baresip_control.h"

#include <QDeadlineTimer>
#include <QNetworkProxy>
#include <QSignalBlocker>
#include <utility>

namespace orvane {
namespace {

constexpr std::size_t kLongestMessageBytes = 1048576;

}  // namespace

BaresipControl::BaresipControl(EventLoop& loop, Settings settings, Listener& listener)
    : loop_(loop),
      settings_(std::move(settings)),
      listener_(listener),
      decoder_(kLongestMessageBytes) {
  socket_.setProxy(QNetworkProxy::NoProxy);
  QObject::connect(&socket_, &QTcpSocket::connected, &socket_, [this] { HandleConnected(); });
  QObject::connect(&socket_, &QTcpSocket::readyRead, &socket_, [this] { HandleBytes(); });
  QObject::connect(&socket_, &QTcpSocket::errorOccurred, &socket_, [this] { HandleError(); });
}

void BaresipControl::Start() {
  started_ = true;
  if (socket_.state() == QAbstractSocket::UnconnectedState) Connect();
}

void BaresipControl::Stop() {
  started_ = false;
  retry_.reset();
  Disconnect();
}

void BaresipControl::Send(const std::vector<Command>& commands, Handler handler) {
  if (!up_ || commands.empty()) return;
  std::string bytes;
  for (const Command& command : commands) {
    const std::string token = std::to_string(++lastToken_);
    bytes += EncodeNetstring(CommandText(command.name, command.params, token));
  }
  batches_.push_back({commands.size(), {}, std::move(handler)});
  if (batches_.size() == 1) LimitAnswerTime();
  socket_.write(bytes.data(), static_cast<qint64>(bytes.size()));
}

void BaresipControl::Wait(std::chrono::milliseconds bound, const std::function<bool()>& done) {
  const QDeadlineTimer deadline(bound);
  while (!done() && !deadline.hasExpired()) {
    const int left = static_cast<int>(deadline.remainingTime());
    const bool progress =
        up_ ? socket_.waitForReadyRead(left) : started_ && socket_.waitForConnected(left);
    if (progress) continue;
    // A connection attempt that took too long has ended without an error.
    if (started_ && !up_ && retry_ == nullptr) Lose();
    return;
  }
}

void BaresipControl::Connect() {
  retry_.reset();
  socket_.connectToHost(QString::fromStdString(settings_.host), settings_.port);
}

void BaresipControl::HandleConnected() {
  up_ = true;
  socket_.setSocketOption(QAbstractSocket::LowDelayOption, 1);
  listener_.OnControlUp();
}

void BaresipControl::HandleError() {
  const bool waitedInVain = socket_.error() == QAbstractSocket::SocketTimeoutError &&
                            socket_.state() == QAbstractSocket::ConnectedState;
  if (!waitedInVain) Lose();
}

void BaresipControl::HandleBytes() {
  const QByteArray bytes = socket_.readAll();
  decoder_.Add({bytes.data(), static_cast<std::size_t>(bytes.size())});
  while (const auto payload = decoder_.Next()) {
    const BaresipMessage message = ParseMessage(*payload);
    if (const auto* response = std::get_if<BaresipResponse>(&message)) Handle(*response);
    if (const auto* event = std::get_if<BaresipEvent>(&message)) listener_.OnEvent(*event);
  }
  if (decoder_.Failed()) Lose();
}

void BaresipControl::Handle(const BaresipResponse& response) {
  // baresip answers in the order of the commands; an answer to anything else is not for us.
  if (batches_.empty() || response.token != std::to_string(answeredToken_ + 1)) return;
  ++answeredToken_;
  batches_.front().answers.push_back(response);
  if (batches_.front().answers.size() < batches_.front().size) return;
  const Batch batch = std::move(batches_.front());
  batches_.pop_front();
  LimitAnswerTime();
  batch.handler(batch.answers);
}

void BaresipControl::LimitAnswerTime() {
  answerLimit_.reset();
  if (batches_.empty()) return;
  answerLimit_ = loop_.After(settings_.answer, [this] { Lose(); });
}

void BaresipControl::Lose() {
  const bool wasUp = up_;
  Disconnect();
  if (!started_) return;
  retry_ = loop_.After(settings_.retry, [this] { Connect(); });
  if (wasUp) listener_.OnControlLost();
}

void BaresipControl::Disconnect() {
  up_ = false;
  answerLimit_.reset();
  batches_.clear();
  answeredToken_ = lastToken_;
  decoder_ = NetstringDecoder(kLongestMessageBytes);
  const QSignalBlocker silent(socket_);
  socket_.abort();
}

}  // namespace orvane
