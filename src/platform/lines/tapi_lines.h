#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/lines/line_service_provider.h"
#include "platform/tapi_control.h"

namespace orvane {

// The telephone lines of all providers, counted through in the order of the providers.
class TapiLines : public TapiControl {
 public:
  explicit TapiLines(std::vector<std::unique_ptr<LineServiceProvider>> providers);

  void Initialise() override;
  int LineCount() override;
  std::string LineName(int line) override;
  LineInfo Info(int line) override;
  void ShowDialog(int line, LineDialog dialog, std::uintptr_t owner) override;
  void OpenLine(std::int32_t& line, std::int32_t privileges, std::int32_t mediaModes,
                std::int16_t options) override;
  void CloseLine(std::int32_t line) override;
  std::int32_t MakeCall(std::int32_t& line, std::string& dialString, std::int16_t options) override;
  void DropCall(std::int32_t& line, std::int32_t& callHandle) override;
  void ShutDown() override;

  std::string Tag() const override { return tag_; }
  void SetTag(const std::string& tag) override { tag_ = tag; }
  void SetEvents(TapiEvents* events) override;

 private:
  struct Place {
    LineServiceProvider& provider;
    int line;
  };
  Place Find(std::int32_t line) const;
  void Report(const std::string& function);

  std::vector<std::unique_ptr<LineServiceProvider>> providers_;
  TapiEvents* events_ = nullptr;
  std::string tag_;
};

}  // namespace orvane
