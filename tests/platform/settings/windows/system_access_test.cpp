// Registry, session, ports and command line as only this system has them.
#include <gtest/gtest.h>

#include "platform/channel/windows/mutex_instance.h"
#include "platform/channel/windows/other_process.h"
#include "platform/errors.h"
#include "platform/serial/windows/com_ports.h"
#include "platform/settings/windows/registry_sandbox.h"
#include "platform/settings/windows/system_registry.h"
#include "platform/system/windows/command_line.h"
#include "platform/text/native_path.h"

namespace orvane {
namespace {

const std::wstring kHostKey = L"SOFTWARE\\Nordel\\Talmix18";

TEST(SystemRegistry, ReadsWhatTheHostWroteWhateverItsType) {
  const RegistrySandbox sandbox;
  SystemRegistry registry;
  registry.SetKeyPath("SOFTWARE\\Nordel\\Talmix18");
  const DWORD number = 2, negative = static_cast<DWORD>(-123);
  const std::uint64_t large = 1ULL << 40;
  sandbox.Put(kHostKey, L"number", REG_DWORD, &number, sizeof number);
  sandbox.Put(kHostKey, L"negative", REG_DWORD, &negative, sizeof negative);
  sandbox.Put(kHostKey, L"large", REG_QWORD, &large, sizeof large);
  sandbox.Put(kHostKey, L"expanded", L"%SystemDrive%\\Talmix\\", REG_EXPAND_SZ);
  sandbox.Put(kHostKey, L"unterminated", REG_SZ, L"C:\\", 6);
  sandbox.Put(kHostKey, L"buffer", REG_SZ, L"C:\\\0\0Rest\0", 18);
  sandbox.Put(kHostKey, L"bytes", REG_BINARY, "abc", 3);
  sandbox.Put(kHostKey, L"long", std::wstring(5000, L'ä'));
  sandbox.Put(kHostKey, L"", L"default");
  std::string umlauts;
  for (int i = 0; i < 5000; ++i) umlauts += "ä";
  for (const auto& [name, value] : {std::pair<const char*, std::string>{"number", "2"},
                                    {"NEGATIVE", "-123"},
                                    {"large", "1099511627776"},
                                    {"expanded", "C:\\Talmix\\"},
                                    {"unterminated", "C:\\"},
                                    {"buffer", "C:\\"},
                                    {"bytes", "fallback"},
                                    {"long", umlauts},
                                    {"", "default"},
                                    {"missing", "fallback"}}) {
    EXPECT_EQ(registry.Read("", name).value_or("fallback"), value) << name;
  }
  EXPECT_EQ(registry.Read("no\\key", "x").value_or("fallback"), "fallback");
}

TEST(SystemRegistry, ReportsTheSystemsErrors) {
  SystemRegistry registry;
  registry.SetRootKey(0x80000099U);
  registry.SetKeyPath("SOFTWARE");
  for (const std::function<void()>& access :
       {std::function<void()>([&] { registry.Read("", "x").value_or(""); }),
        std::function<void()>([&] { registry.Write("", "x", ""); })}) {
    try {
      access();
      ADD_FAILURE() << "no failure";
    } catch (const RegistryError& error) {
      EXPECT_EQ(error.Number(), ERROR_INVALID_HANDLE);
      EXPECT_FALSE(error.Description().empty());
    }
  }
}

TEST(MutexInstance, DISABLED_HoldsTheSession) {
  MutexInstance instance(OwnTask());
  Say(instance.Claim() ? "claimed" : "refused");
  Sleep(INFINITE);
}

TEST(MutexInstance, AProcessThatWasKilledHoldsNothing) {
  const std::string name = "Orvane.Test.Killed";
  OtherProcess other("MutexInstance.DISABLED_HoldsTheSession", name);
  ASSERT_TRUE(other.Said("claimed"));
  EXPECT_FALSE(MutexInstance(name).Claim());
  other.Kill();
  EXPECT_TRUE(MutexInstance(name).Claim());
}

TEST(SerialPortNames, ComesFromTheSystemsList) {
  const RegistrySandbox sandbox(HKEY_LOCAL_MACHINE);
  EXPECT_EQ(SerialPortNames(), std::vector<std::string>());
  const std::wstring key = L"Hardware\\Devicemap\\SerialComm";
  const DWORD number = 4;
  sandbox.Put(key, L"\\Device\\Serial0", L"COM3");
  sandbox.Put(key, L"number", REG_DWORD, &number, sizeof number);
  sandbox.Put(key, L"\\Device\\VCP0", L"COM12");
  EXPECT_EQ(SerialPortNames(), (std::vector<std::string>{"COM3", "COM12"}));
}

TEST(CommandLine, EverythingBehindTheProgramAsItWasWritten) {
  constexpr std::pair<const wchar_t*, const wchar_t*> kCases[] = {
      {L"orvane.exe TX:17~Dial~0|030  12", L"TX:17~Dial~0|030  12"},
      {L"\"C:\\Program Files\\orvane.exe\"  TX:17 ", L"TX:17 "},
      {L"\"C:\\a b\\orvane.exe\"TX:17", L"TX:17"},
      {L"orvane\t\"TX:17\"", L"\"TX:17\""},
      {L"orvane.exe", L""},
      {L"orvane.exe  ", L""},
      {L"\"C:\\a", L""},
      {L"", L""}};
  for (const auto& [line, text] : kCases) EXPECT_EQ(BehindProgramName(line), text) << line;
}

TEST(NativePath, KeepsEveryCharacter) {
  EXPECT_EQ(NativePath("C:\\Größe €\\日本/x.fdb"), L"C:\\Größe €\\日本\\x.fdb");
  EXPECT_EQ(NativePath(""), std::filesystem::path());
}

}  // namespace
}  // namespace orvane
