#include "platform/lines/linux/baresip_messages.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <algorithm>
#include <sstream>

namespace orvane {
namespace {

std::string TextOf(const QJsonObject& object, const char* name) {
  return object.value(QLatin1String(name)).toString().toStdString();
}

bool IsTrue(const QJsonObject& object, const char* name) {
  return object.value(QLatin1String(name)).toBool();
}

}  // namespace

std::string CommandText(const std::string& command, const std::string& params,
                        const std::string& token) {
  QJsonObject object{{QStringLiteral("command"), QString::fromStdString(command)},
                     {QStringLiteral("token"), QString::fromStdString(token)}};
  if (!params.empty()) object.insert(QStringLiteral("params"), QString::fromStdString(params));
  return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

BaresipMessage ParseMessage(std::string_view text) {
  // A caller's display name comes as it was on the wire; bytes that are no UTF-8 must not make the
  // whole message unreadable.
  const QByteArray clean =
      QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toUtf8();
  const QJsonObject object = QJsonDocument::fromJson(clean).object();
  if (IsTrue(object, "response")) {
    return BaresipResponse{TextOf(object, "token"), IsTrue(object, "ok"), TextOf(object, "data")};
  }
  if (IsTrue(object, "event")) {
    return BaresipEvent{TextOf(object, "type"), TextOf(object, "accountaor"), TextOf(object, "id"),
                        TextOf(object, "direction") == "incoming", TextOf(object, "param")};
  }
  return {};
}

std::vector<std::string> AccountsOf(std::string_view reginfo) {
  std::vector<std::string> accounts;
  std::istringstream words{std::string(reginfo)};
  for (std::string word; words >> word;) {
    if (!word.starts_with("sip:") && !word.starts_with("sips:")) continue;
    if (std::find(accounts.begin(), accounts.end(), word) == accounts.end()) {
      accounts.push_back(word);
    }
  }
  return accounts;
}

std::string OutgoingCallIdOf(std::string_view callstat) {
  constexpr std::string_view kMark = " id=";
  const std::size_t mark = callstat.find(kMark);
  if (mark == std::string_view::npos || callstat.find("direction: Outgoing") == callstat.npos) {
    return {};
  }
  const std::string_view rest = callstat.substr(mark + kMark.size());
  return std::string(rest.substr(0, rest.find_first_of(" \r\n")));
}

}  // namespace orvane
