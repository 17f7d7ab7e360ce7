#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace orvane {

// The messages of baresip's control connection: JSON objects, all text UTF-8.

struct BaresipResponse {
  std::string token;
  bool ok = false;
  std::string data;
};

struct BaresipEvent {
  // For example "CALL_RINGING".
  std::string type;
  // Address of the account, for example "sip:anna@example.org".
  std::string account;
  // Empty while baresip has not given the call one.
  std::string callId;
  bool incoming = false;
  // What else there is to say; at the end of a call the reason, for example "486 Busy Here".
  std::string param;
};

// Nothing when the message is neither a response nor an event.
using BaresipMessage = std::variant<std::monostate, BaresipResponse, BaresipEvent>;

std::string CommandText(const std::string& command, const std::string& params,
                        const std::string& token);
BaresipMessage ParseMessage(std::string_view text);

// The account addresses in the answer to "reginfo", each once and in order.
std::vector<std::string> AccountsOf(std::string_view reginfo);
// The identifier of the call that the answer to "callstat" describes; empty when there is none or
// it was not placed from here.
std::string OutgoingCallIdOf(std::string_view callstat);

}  // namespace orvane
