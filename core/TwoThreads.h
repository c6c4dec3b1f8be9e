// A second thread for a share of a calculation. Both threads have ended their work when the call
// returns, so that outside of a step there is the GUI thread alone. What is given to it touches no
// window, asks the clerk nothing and writes only what no other piece looks at.
#pragma once

#include <cstddef>
#include <functional>

namespace tallyrun {

// Calls work(piece) once for every piece from 0 to `count` - 1, in any order; on two threads when
// each piece goes over so many `rows` of a sheet that it is worth one. Raises what a piece raised;
// others may be left out then.
void ForEachPiece(std::size_t count, std::size_t rows,
                  const std::function<void(std::size_t)>& work);

}  // namespace tallyrun
