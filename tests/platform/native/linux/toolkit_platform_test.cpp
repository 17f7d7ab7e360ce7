#include <gtest/gtest.h>

#include <QByteArray>
#include <tuple>

#include "platform/native/native.h"

namespace orvane {
namespace {

TEST(ToolkitPlatform, IsX11WhereThereIsADisplayUnlessAnotherOneIsMeant) {
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  const QByteArray display = qgetenv("DISPLAY");
  const std::tuple<const char*, const char*, const char*> kCases[] = {
      {"", ":0", "xcb"},
      {"wayland", ":0", "xcb"},
      {"wayland;xcb", ":0", "xcb"},
      {"wayland", "", "wayland"},
      {"", "", ""},
      {"offscreen", ":0", "offscreen"}};
  for (const auto& [asked, screen, taken] : kCases) {
    SCOPED_TRACE(std::string(asked) + " " + screen);
    qputenv("QT_QPA_PLATFORM", asked);
    qputenv("DISPLAY", screen);
    native::PrepareToolkit();
    EXPECT_EQ(qgetenv("QT_QPA_PLATFORM").toStdString(), taken);
  }
  qputenv("QT_QPA_PLATFORM", platform);
  qputenv("DISPLAY", display);
}

}  // namespace
}  // namespace orvane
