// What the system gives and wants back: a handle with the call that returns it.
#pragma once

#include <utility>
#include <windows.h>

namespace corvel::win32 {

// The system has two values for no handle.
template <class H>
bool IsHandle(H handle) {
  return handle != nullptr && handle != static_cast<H>(INVALID_HANDLE_VALUE);
}

template <class H, auto kGiveBack>
class Owned {
 public:
  Owned() = default;
  explicit Owned(H handle) : handle_(handle) {}
  ~Owned() { Reset(); }
  Owned(Owned&& other) noexcept : handle_(std::exchange(other.handle_, H{})) {}
  Owned& operator=(Owned&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }

  explicit operator bool() const { return IsHandle<void*>(handle_); }
  H Get() const { return handle_; }
  H Release() { return std::exchange(handle_, H{}); }
  void Reset() {
    if (*this) kGiveBack(std::exchange(handle_, H{}));
  }

 private:
  H handle_{};
};

using OwnedHandle = Owned<HANDLE, CloseHandle>;

}  // namespace corvel::win32
