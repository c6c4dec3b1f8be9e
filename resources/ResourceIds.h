// The numbers of the program's own resources, read by the resource compiler as well: nothing but
// plain defines.
#pragma once

// The program's icon, shown by its windows. The lowest number, so that Windows shows it for the
// file, too.
#define TALLYRUN_ICON 1
