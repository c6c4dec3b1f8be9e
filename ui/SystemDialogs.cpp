#include "ui/SystemDialogs.h"

#include <commdlg.h>
#include <shlobj.h>

#include <array>
#include <vector>

#include "ui/Handles.h"

namespace tallyrun {
namespace {

// As long as a path of the A functions can be made to be.
constexpr std::size_t kLongestPath = 32768;

// The dialog's form of the filters: pairs of texts, each ended by a NUL, and one NUL more.
std::string FilterText(const std::vector<FileFilter>& filters) {
  std::string text;
  for (const FileFilter& filter : filters) {
    text += filter.description + '\0' + filter.pattern + '\0';
  }
  return text + '\0';
}

struct ItemListTraits {
  using Handle = LPITEMIDLIST;
  static void Free(Handle list) { CoTaskMemFree(list); }
};
using UniqueItemList = UniqueHandle<ItemListTraits>;

// The dialogs need OLE on the thread.
class OleScope {
 public:
  OleScope() : result_(OleInitialize(nullptr)) {}
  ~OleScope() {
    if (SUCCEEDED(result_)) OleUninitialize();
  }
  OleScope(const OleScope&) = delete;
  OleScope& operator=(const OleScope&) = delete;

 private:
  HRESULT result_;
};

int CALLBACK SelectStartFolder(HWND picker, UINT message, LPARAM, LPARAM startFolder) noexcept {
  if (message == BFFM_INITIALIZED) {
    SendMessageA(picker, BFFM_SETSELECTIONA, TRUE, startFolder);
  }
  return 0;
}

}  // namespace

std::optional<std::string> ChooseFile(HWND owner, const FileDialogRequest& request) {
  const OleScope ole;
  const std::string filters = FilterText(request.filters);
  std::vector<char> path(kLongestPath, '\0');
  OPENFILENAMEA dialog = {};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = request.filters.empty() ? nullptr : filters.c_str();
  dialog.nFilterIndex = 1;
  dialog.lpstrFile = path.data();
  dialog.nMaxFile = static_cast<DWORD>(path.size());
  dialog.lpstrTitle = request.title.c_str();
  dialog.Flags = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  if (GetOpenFileNameA(&dialog) == FALSE) return std::nullopt;
  return std::string(path.data());
}

std::string ChooseFolder(HWND owner, const std::string& prompt, const std::string& startFolder) {
  const OleScope ole;
  // The tree finds no folder by a path that ends in a backslash, but for a drive's root.
  std::string start = startFolder;
  if (start.size() > 3 && start.back() == '\\') start.pop_back();
  std::array<char, MAX_PATH> name = {};
  BROWSEINFOA browse = {};
  browse.hwndOwner = owner;
  browse.pszDisplayName = name.data();
  browse.lpszTitle = prompt.c_str();
  browse.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
  if (!start.empty()) {
    browse.lpfn = SelectStartFolder;
    browse.lParam = reinterpret_cast<LPARAM>(start.c_str());
  }
  const UniqueItemList chosen(SHBrowseForFolderA(&browse));
  std::array<char, MAX_PATH> path = {};
  if (!chosen || SHGetPathFromIDListA(chosen.Get(), path.data()) == FALSE) return {};
  return path.data();
}

}  // namespace tallyrun
