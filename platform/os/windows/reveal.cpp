#include "platform/os/reveal.h"

#include <windows.h>

#include <memory>

// After the header that its types come from.
#include <objbase.h>
#include <shlobj.h>

namespace os {
namespace {

using ItemList = std::unique_ptr<ITEMIDLIST, decltype(&ILFree)>;

ItemList ItemOf(std::filesystem::path path) {
  return {ILCreateFromPathW(path.make_preferred().c_str()), &ILFree};
}

// The shell needs it on the calling thread.
class ComSession {
 public:
  ComSession() : result(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
  ComSession(const ComSession&) = delete;
  ComSession& operator=(const ComSession&) = delete;
  ~ComSession() {
    if (SUCCEEDED(result)) CoUninitialize();
  }

 private:
  HRESULT result;
};

}  // namespace

bool RevealInFolder(const std::filesystem::path& file) {
  const ComSession session;
  const std::filesystem::path whole = std::filesystem::absolute(file);
  const ItemList folder = ItemOf(whole.parent_path());
  const ItemList item = ItemOf(whole);
  if (!folder || !item) return false;
  LPCITEMIDLIST selected = item.get();
  return SUCCEEDED(SHOpenFolderAndSelectItems(folder.get(), 1, &selected, 0));
}

}  // namespace os
