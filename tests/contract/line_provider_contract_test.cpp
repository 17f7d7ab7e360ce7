#include "contract/line_provider_contract.h"

#include "contract/fake_sip_line_lab.h"
#include "contract/simulated_line_lab.h"

namespace orvane {
namespace {

INSTANTIATE_TEST_SUITE_P(
    Lines, LineProviderContract,
    testing::Values(LineImplementation{"Simulated",
                                       [] { return std::make_unique<SimulatedLineLab>(); }},
                    LineImplementation{"Sip", [] { return std::make_unique<FakeSipLineLab>(); }}),
    [](const auto& instance) { return instance.param.name; });

}  // namespace
}  // namespace orvane
