#include "contract/line_provider_contract.h"

#include "contract/simulated_line_lab.h"
#include "contract/system_implementations.h"

namespace orvane {
namespace {

std::vector<LineImplementation> Implementations() {
  std::vector<LineImplementation> all = SystemLines();
  all.push_back({"Simulated", [] { return std::make_unique<SimulatedLineLab>(); }});
  return all;
}

INSTANTIATE_TEST_SUITE_P(Lines, LineProviderContract, testing::ValuesIn(Implementations()),
                         [](const auto& instance) { return instance.param.name; });

}  // namespace
}  // namespace orvane
