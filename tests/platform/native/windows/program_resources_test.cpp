// What Windows reads in the program file before the program runs.
#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <string_view>

#include "app/version.h"
#include "platform/system/windows/wide_text.h"

namespace orvane {
namespace {

class ProgramResources : public testing::Test {
 protected:
  ~ProgramResources() override { FreeLibrary(file); }

  std::string_view Resource(const wchar_t* type, const wchar_t* name) const {
    HRSRC found = FindResourceW(file, name, type);
    if (found == nullptr) return {};
    const auto* const bytes = static_cast<const char*>(LockResource(LoadResource(file, found)));
    return {bytes, SizeofResource(file, found)};
  }
  bool Contains(std::string_view bytes, std::wstring_view text) const {
    const std::string_view wanted(reinterpret_cast<const char*>(text.data()),
                                  text.size() * sizeof(wchar_t));
    return bytes.find(wanted) != std::string_view::npos;
  }

  HMODULE file = LoadLibraryExW(ToWide(ORVANE_BUILD_DIR "/bin/orvane.exe").c_str(), nullptr,
                                LOAD_LIBRARY_AS_DATAFILE);
};

TEST_F(ProgramResources, AskForWhatTheWindowsNeed) {
  ASSERT_NE(file, nullptr);
  const auto manifest = Resource(RT_MANIFEST, MAKEINTRESOURCEW(1));
  for (const std::string_view wish :
       {">PerMonitorV2<", "Microsoft.Windows.Common-Controls\" version=\"6.",
        ">true</longPathAware>", "\"asInvoker\""}) {
    EXPECT_NE(manifest.find(wish), std::string_view::npos) << wish;
  }
  const auto version = Resource(RT_VERSION, MAKEINTRESOURCEW(1));
  EXPECT_TRUE(Contains(version, L"FileVersion"));
  EXPECT_TRUE(Contains(version, ToWide(ProgramVersion())));
  EXPECT_FALSE(Resource(RT_GROUP_ICON, MAKEINTRESOURCEW(1)).empty());
}

}  // namespace
}  // namespace orvane
