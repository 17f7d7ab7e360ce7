#include "demo_host/demo_line.h"

#include <stdexcept>
#include <string>

#include "demo_host/demo_system.h"

namespace orvane {
namespace {

class SimulatedDemoLine : public DemoLine {
 public:
  explicit SimulatedDemoLine(bool isSetUp) : isSetUp_(isSetUp) {
    qputenv("ORVANE_SIMULATED_LINES", "1");
  }
  void Configure(HostInstallationOptions& options) const override {
    options.dialMethod = isSetUp_ ? kDialByLine : kNoDialling;
    if (isSetUp_) options.tapiLineName = "Simulierte Leitung 1";
  }
  QString Title() const override { return QStringLiteral("Simulierte Leitung"); }
  void Listen(Listener listener) override {
    listener(QStringLiteral("Die letzten Ziffern bestimmen den Ablauf:"));
    listener(QStringLiteral("99901 besetzt, 99902 niemand nimmt ab,"));
    listener(QStringLiteral("99903 abgewiesen, 99904 Leitung fällt aus,"));
    listener(QStringLiteral("99905 Gegenstelle legt auf, 99906 unbekannt;"));
    listener(QStringLiteral("jede andere Nummer wird angenommen."));
  }

 private:
  bool isSetUp_;
};

}  // namespace

std::unique_ptr<DemoLine> MakeDemoLine(const std::string& name,
                                       const std::filesystem::path& folder) {
  if (name == "simulated") return std::make_unique<SimulatedDemoLine>(true);
  if (name == "unset") return std::make_unique<SimulatedDemoLine>(false);
  if (auto line = MakeSystemDemoLine(name, folder)) return line;
  throw std::runtime_error("Diese Leitung gibt es nicht: " + name);
}

}  // namespace orvane
