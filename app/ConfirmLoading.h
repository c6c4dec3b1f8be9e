// The question before rows are replaced.
#pragma once

namespace tallyrun {

// Asks whether unsaved rows may be lost; true for Yes.
bool ConfirmLoading();

}  // namespace tallyrun
