// What is taken from the user for a moment comes back on every road.
#pragma once

#include <utility>

namespace corvel {

// Runs `work` and then `giveBack`; also if `work` is left by an exception, which goes on behind it.
// What `giveBack` throws goes on instead.
template <typename Work, typename GiveBack>
void AndGiveBack(Work&& work, GiveBack&& giveBack) {
  try {
    std::forward<Work>(work)();
  } catch (...) {
    giveBack();
    throw;
  }
  giveBack();
}

}  // namespace corvel
