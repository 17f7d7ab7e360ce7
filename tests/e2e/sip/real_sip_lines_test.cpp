// The contract of lines at a real baresip that talks to a real far end.
#include "contract/line_provider_contract.h"
#include "contract/qt_line_lab.h"
#include "fakes/temporary_folder.h"
#include "platform/lines/linux/sip_lines.h"
#include "sip/sip_demo.h"

namespace orvane {
namespace {

class RealSipLineLab : public QtLineLab {
 public:
  LineServiceProvider& Provider() override { return lines_; }

 private:
  TemporaryFolder folder_;
  SipDemo demo_{folder_.Path()};
  SipLines lines_{loop_, handles_, {"127.0.0.1", demo_.ControlPort()}};
};

INSTANTIATE_TEST_SUITE_P(RealSip, LineProviderContract,
                         testing::Values(LineImplementation{
                             "Baresip", [] { return std::make_unique<RealSipLineLab>(); }}),
                         [](const auto& instance) { return instance.param.name; });

}  // namespace
}  // namespace orvane
