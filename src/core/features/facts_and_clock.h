// The Fact of the Day and the clock.
#pragma once

#include <string>

namespace corvel {

class FactsAndClock {
 public:
  virtual ~FactsAndClock() = default;
  // As the splash loads: its fact of the day, "" for none.
  virtual std::string ChooseFact() = 0;
  // At the end of the start, if PopupFact.
  virtual void ShowFact() = 0;
  // As the central window loads, if the clock is to show.
  virtual void ShowClock() = 0;
};

}  // namespace corvel
