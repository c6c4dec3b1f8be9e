// The procedures that every window shares. Each subject has a file of its own; this is the
// place where they are found together.
#pragma once

#include "core/entry/EntryRow.h"
#include "core/entry/RowChecks.h"
#include "core/entry/Settings.h"
#include "core/entry/SortEntries.h"
#include "core/grid/ColumnWidths.h"
#include "core/grid/GridRows.h"
#include "core/grid/SortGrid.h"
#include "core/masterlists/Lists.h"
#include "core/masterlists/Lookups.h"
