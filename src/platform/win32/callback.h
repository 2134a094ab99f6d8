// Callbacks of the system: window procedures, hooks, timers, dialog procedures.
//
// No exception may pass through the system. So each callback of ours runs its work in
// Callback::Run, which keeps what is thrown, and every call of the seam that may have come back
// from our own callbacks (pump, send, create, destroy, a modal loop) ends with Callback::Rethrow,
// which throws it on. So ProcessExit unwinds through nested pumps as it does on the desk.
#pragma once

#include <windows.h>

#include <exception>
#include <utility>

namespace corvel::win32 {

class Callback {
 public:
  // While something is on its way up, further callbacks do nothing and answer `otherwise`.
  template <class F>
  static LRESULT Run(F&& work, LRESULT otherwise = 0) noexcept {
    if (thrown_) return otherwise;
    try {
      return static_cast<LRESULT>(work());
    } catch (...) {
      thrown_ = std::current_exception();
      return otherwise;
    }
  }
  static bool IsThrown() { return thrown_ != nullptr; }
  static void Rethrow() {
    if (thrown_) std::rethrow_exception(std::exchange(thrown_, nullptr));
  }

 private:
  static inline std::exception_ptr thrown_;
};

}  // namespace corvel::win32
