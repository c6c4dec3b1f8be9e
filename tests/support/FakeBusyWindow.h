// A window that is nothing but its caption and pointer.
#pragma once

#include <string>

#include "core/BusyWindow.h"

namespace tallyrun::testing {

class FakeBusyWindow : public BusyWindow {
 public:
  std::string Caption() const override { return caption; }
  void SetCaption(const std::string& text) override { caption = text; }
  void SetPointer(PointerShape shape) override { pointer = shape; }

  std::string caption;
  PointerShape pointer = PointerShape::Normal;
};

}  // namespace tallyrun::testing
