#include "platform/lines/tapi_lines.h"

#include "platform/errors.h"

namespace orvane {

TapiLines::TapiLines(std::vector<std::unique_ptr<LineServiceProvider>> providers)
    : providers_(std::move(providers)) {}

void TapiLines::Initialise() {
  for (const auto& provider : providers_) provider->Initialise();
  tag_ = "closed";
  Report("TapiLineInit");
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

void TapiLines::OpenLine(std::int32_t& line, std::int32_t /*privileges*/,
                         std::int32_t /*mediaModes*/, std::int16_t /*options*/) {
  const Place place = Find(line);
  place.provider.OpenLine(place.line);
  tag_ = "opened";
  Report("TapiLineOpen");
}

void TapiLines::CloseLine(std::int32_t line) {
  const Place place = Find(line);
  place.provider.CloseLine(place.line);
  Report("TapiLineClose");
}

std::int32_t TapiLines::MakeCall(std::int32_t& line, std::string& dialString,
                                 std::int16_t /*options*/) {
  const Place place = Find(line);
  return place.provider.MakeCall(place.line, dialString);
}

void TapiLines::DropCall(std::int32_t& line, std::int32_t& callHandle) {
  const Place place = Find(line);
  place.provider.DropCall(place.line, callHandle);
}

void TapiLines::ShutDown() {
  for (const auto& provider : providers_) provider->ShutDown();
  tag_.clear();
}

void TapiLines::SetEvents(TapiEvents* events) {
  events_ = events;
  for (const auto& provider : providers_) provider->SetEvents(events);
}

TapiLines::Place TapiLines::Find(std::int32_t line) const {
  int remaining = line;
  for (const auto& provider : providers_) {
    if (remaining < 0) break;
    if (remaining < provider->LineCount()) return {*provider, remaining};
    remaining -= provider->LineCount();
  }
  throw TapiError(kLineErrorBadDevice, "Die Leitung gibt es nicht.");
}

void TapiLines::Report(const std::string& function) {
  if (events_ != nullptr) events_->OnLineMessage("SUCCESS", function, 0);
}

}  // namespace orvane
