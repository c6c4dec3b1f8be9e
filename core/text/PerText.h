// What a pass over a file remembers of each distinct text that it meets: each is looked up once.
#pragma once

#include <string_view>
#include <vector>

#include "core/text/TextTable.h"

namespace tallyrun {

template <class Remembered>
class PerText {
 public:
  // What is remembered of the text; what `make(text)` gives back when it is a new one. Good until
  // the next call.
  template <class Make>
  const Remembered& Of(std::string_view text, Make make) {
    const std::uint32_t number = texts_.Intern(text);
    if (number == remembered_.size()) remembered_.push_back(make(text));
    return remembered_[number];
  }

 private:
  TextTable texts_;
  std::vector<Remembered> remembered_;  // by the text's number
};

}  // namespace tallyrun
