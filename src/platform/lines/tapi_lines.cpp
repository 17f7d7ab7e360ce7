#include "platform/lines/tapi_lines.h"

#include "platform/lines/line_errors.h"

namespace orvane {
namespace {

constexpr const char* kSuccess = "SUCCESS";
constexpr const char* kInit = "TapiLineInit";
constexpr const char* kOpen = "TapiLineOpen";
constexpr const char* kClose = "TapiLineClose";

}  // namespace

TapiLines::TapiLines(std::vector<std::unique_ptr<LineServiceProvider>> providers)
    : providers_(std::move(providers)) {
  for (const auto& provider : providers_) provider->SetEvents(this);
}

void TapiLines::Initialise() {
  for (const auto& provider : providers_) provider->Initialise();
  OnLineMessage(kSuccess, kInit, 0);
}

int TapiLines::LineCount() {
  int count = 0;
  for (const auto& provider : providers_) count += provider->LineCount();
  return count;
}

std::string TapiLines::LineName(int line) {
  const Place place = Find(line);
  return place.provider.LineName(place.line);
}

LineInfo TapiLines::Info(int line) {
  const Place place = Find(line);
  return place.provider.Info(place.line);
}

void TapiLines::ShowDialog(int line, LineDialog dialog, std::uintptr_t owner) {
  const Place place = Find(line);
  place.provider.ShowDialog(place.line, dialog, owner);
}

std::int32_t TapiLines::OpenLine(std::int32_t line, std::int32_t /*privileges*/,
                                 std::int32_t /*mediaModes*/, std::int16_t /*options*/) {
  const Place place = Find(line);
  place.provider.OpenLine(place.line);
  OnLineMessage(kSuccess, kOpen, 0);
  return line;
}

void TapiLines::CloseLine(std::int32_t line) {
  const Place place = Find(line);
  place.provider.CloseLine(place.line);
  OnLineMessage(kSuccess, kClose, 0);
}

std::int32_t TapiLines::MakeCall(std::int32_t line, const std::string& dialString,
                                 std::int16_t /*options*/) {
  const Place place = Find(line);
  return place.provider.MakeCall(place.line, dialString);
}

void TapiLines::DropCall(std::int32_t line, std::int32_t callHandle) {
  const Place place = Find(line);
  place.provider.DropCall(place.line, callHandle);
}

void TapiLines::ShutDown() {
  for (const auto& provider : providers_) provider->ShutDown();
  tag_ = TapiTag::kNone;
}

TapiLines::Place TapiLines::Find(std::int32_t line) const {
  int remaining = line;
  for (const auto& provider : providers_) {
    if (remaining < 0) break;
    if (remaining < provider->LineCount()) return {*provider, remaining};
    remaining -= provider->LineCount();
  }
  throw MakeLineError(kLineErrorBadDevice);
}

void TapiLines::OnBusy(std::int32_t callHandle) {
  if (events_ != nullptr) events_->OnBusy(callHandle);
}

void TapiLines::OnConnected(std::int32_t callHandle) {
  if (events_ != nullptr) events_->OnConnected(callHandle);
}

void TapiLines::OnDisconnected(std::int32_t callHandle) {
  if (events_ != nullptr) events_->OnDisconnected(callHandle);
}

void TapiLines::OnLineMessage(const std::string& result, const std::string& function,
                              std::int32_t code) {
  if (result == kSuccess && (function == kInit || function == kClose)) tag_ = TapiTag::kClosed;
  if (result == kSuccess && function == kOpen) tag_ = TapiTag::kOpened;
  if (events_ != nullptr) events_->OnLineMessage(result, function, code);
}

void TapiLines::OnCallState(std::int32_t callHandle, std::int32_t callId, std::int32_t state) {
  if (events_ != nullptr) events_->OnCallState(callHandle, callId, state);
}

}  // namespace orvane
