#include "platform/linux/session_directory.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QTemporaryDir>
#include <string>

namespace orvane {
namespace {

// Sets an environment variable for the length of a test.
class ScopedVariable {
 public:
  ScopedVariable(const char* name, const char* value) : name_(name), old_(qgetenv(name)) {
    qputenv(name_, value);
  }
  ~ScopedVariable() { qputenv(name_, old_); }
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;

 private:
  const char* name_;
  QByteArray old_;
};

TEST(SessionDirectoryPath, IsOnePerUserAndDisplay) {
  const QTemporaryDir runtime;
  const std::string own = runtime.path().toStdString();
  const std::string temporary = "/tmp/orvane-" + std::to_string(geteuid());
  struct Case {
    const char* runtime;
    const char* wayland;
    const char* display;
    std::string path;
  };
  const Case cases[] = {
      {own.c_str(), "", ":0", own + "/orvane/session-_0"},
      {own.c_str(), "", ":0.1", own + "/orvane/session-_0"},
      {own.c_str(), "wayland-1", ":0", own + "/orvane/session-wayland-1"},
      {own.c_str(), "", "../../x y", own + "/orvane/session-______x_y"},
      {own.c_str(), "", "", own + "/orvane/session-"},
      {"", "", ":1", temporary + "/session-_1"},
      {"/nowhere", "", ":1", temporary + "/session-_1"},
      {"/proc/self/exe", "", ":1", temporary + "/session-_1"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.path);
    const ScopedVariable folder("XDG_RUNTIME_DIR", c.runtime);
    const ScopedVariable wayland("WAYLAND_DISPLAY", c.wayland);
    const ScopedVariable display("DISPLAY", c.display);
    EXPECT_EQ(SessionDirectory::DefaultPath(), c.path);
  }
}

}  // namespace
}  // namespace orvane
