#pragma once

#include <gtest/gtest.h>

#include <QDir>

#include "contract/qt_line_lab.h"
#include "platform/lines/windows/tapi32_lines.h"
#include "scripted_tapi/windows/scripted_tapi.h"

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
    EXPECT_EQ(Tapi().LeftOver(), 0);
  }

  LineServiceProvider& Provider() override { return lines_; }
  ScriptedTapi& Tapi() { return *tapi_; }

 private:
  static std::wstring Path() {
    const QString path =
        QCoreApplication::applicationDirPath() + QStringLiteral("/scripted_tapi32.dll");
    return QDir::toNativeSeparators(path).toStdWString();
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
