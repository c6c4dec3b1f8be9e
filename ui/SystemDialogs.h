// The system's dialogs for choosing a file and a folder.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "core/Platform.h"

namespace tallyrun {

// The existing file that the clerk chose, or nothing. The current directory stays as it is.
std::optional<std::string> ChooseFile(HWND owner, const FileDialogRequest& request);

// The folder that the clerk chose, or "". `startFolder` is selected when it exists.
std::string ChooseFolder(HWND owner, const std::string& prompt, const std::string& startFolder);

}  // namespace tallyrun
