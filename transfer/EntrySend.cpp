#include "transfer/EntrySend.h"

#include "core/entry/EntryRow.h"
#include "core/entry/Settings.h"
#include "core/grid/TildeTable.h"

namespace tallyrun {

EntrySend::EntrySend(const FlexGrid& entries, const Date& entryDay, BusyScope& busyScope)
    : busy(busyScope),
      day(FormatDdMmmYyyy(entryDay)),
      stem(EntryFileStem(entryDay)),
      fileName(EntryFileName(entryDay)),
      workingFolder(Settings.backupLocation),
      sheet(GridToText(entries)) {}

}  // namespace tallyrun
