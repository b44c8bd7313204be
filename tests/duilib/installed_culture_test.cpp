#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "platform/duilib/culture/culture.h"

namespace {

// The only test of its program: nothing has loaded a table before.
TEST(InstalledCultureTest, TheFirstReadersLoadTheInstalledEnglishTextsTogether) {
  std::vector<std::wstring> titles(4);
  std::vector<std::thread> readers;
  readers.reserve(titles.size());
  for (std::wstring& title : titles) {
    readers.emplace_back([&title] {
      title = DuiLib::UICulture::GetInstance()->ParseBind(L"bind='IDS_HARDWARE_DETECT'");
    });
  }
  for (std::thread& reader : readers) reader.join();
  EXPECT_EQ(titles, std::vector<std::wstring>(4, L"Hardware diagnosis"));
}

}  // namespace
