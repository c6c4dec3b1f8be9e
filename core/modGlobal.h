// The procedures that every window shares. Each subject has a file of its own; this is the
// place where they are found together.
#pragma once

#include "core/EntryRow.h"
#include "core/GridRows.h"
#include "core/Lists.h"
#include "core/Lookups.h"
#include "core/RowChecks.h"
#include "core/Settings.h"
#include "core/SortGrid.h"
