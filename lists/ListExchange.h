// Exchanging a master list with KTX: the BO list goes out, the ISIN list comes in, both over the
// one transfer mechanism. Knows the grid and the signs of a busy window, not the window itself.
#pragma once

#include <functional>
#include <string>

#include "core/BusyScope.h"
#include "core/grid/FlexGrid.h"

namespace tallyrun {

// Uploads the rows as the grid shows them, saved or not, and tells the outcome. A blank row is
// told instead, and nothing is sent. The window's caption and pointer are its own again on every
// way out; an error is raised after that. PermissionDenied while another transfer runs.
void SendBoList(FlexGrid& grid, BusyWindow& window);

// Downloads the list over ISIN.txt, has the window show it with `showList`, which is given its
// path, and tells the outcome. The list before stays as a backup, or comes back when the transfer
// failed; without one, FileNotFound is raised then and the transfer's files stay behind.
void ReceiveIsinList(BusyWindow& window, const std::function<void(const std::string&)>& showList);

}  // namespace tallyrun
