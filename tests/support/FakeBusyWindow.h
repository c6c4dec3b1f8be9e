// A window that is nothing but its caption and pointer.
#pragma once

#include <string>

#include "core/BusyScope.h"

namespace tallyrun::testing {

class FakeBusyWindow : public BusyWindow {
 public:
  // As they are shown.
  std::string caption;
  PointerShape pointer = PointerShape::Normal;

 private:
  void ShowCaption(const std::string& text) override { caption = text; }
  void ShowPointer(PointerShape shape) override { pointer = shape; }
};

}  // namespace tallyrun::testing
