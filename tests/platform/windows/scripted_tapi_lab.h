#pragma once

#include <gtest/gtest.h>

#include "contract/qt_line_lab.h"
#include "platform/windows/tapi32_lines.h"
#include "scripted_tapi/scripted_tapi.h"

namespace orvane {

// The system's lines at a telephony library that only plays.
class ScriptedTapiLab : public QtLineLab {
 public:
  explicit ScriptedTapiLab(ScriptedTapi::Manner manner = {}) {
    Tapi().Reset();
    Tapi().manner = manner;
  }
  // Whatever a test did: nothing was asked that a program may not ask, and each call that is over
  // was given back.
  ~ScriptedTapiLab() override {
    Settle();
    EXPECT_EQ(Tapi().misuses, std::vector<std::string>());
    EXPECT_LE(Tapi().CallHandles(), runningCalls);
  }

  LineServiceProvider& Provider() override { return lines_; }
  ScriptedTapi& Tapi() { return *tapi_; }

  // How many calls the test leaves running.
  std::size_t runningCalls = 0;

 private:
  static std::wstring Path() {
    return (QCoreApplication::applicationDirPath() + QStringLiteral("/scripted_tapi/tapi32.dll"))
        .replace(QLatin1Char('/'), QLatin1Char('\\'))
        .toStdWString();
  }
  static ScriptedTapi* Load() {
    HMODULE const library = LoadLibraryW(Path().c_str());
    return reinterpret_cast<GetScriptedTapiFunction*>(
        reinterpret_cast<void*>(GetProcAddress(library, kScriptedTapiFunction)))();
  }

  ScriptedTapi* tapi_ = Load();
  Tapi32Lines lines_{loop_, handles_, Path()};
};

}  // namespace orvane
