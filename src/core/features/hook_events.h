// What a feature does with one of the central window's hooks.
#pragma once

#include "forms/subclass.h"
#include "platform/hooks.h"

namespace corvel {

class HookEvents {
 public:
  virtual ~HookEvents() = default;
  // Inside the hooked window's procedure, while the client waits: decide quickly, and raise on
  // `hook` what takes longer or may destroy windows. A RunTimeError is dropped.
  virtual void OnMessage(HookedMessage& message, forms::SubClass& hook) = 0;
  // A value that was raised, outside of the hook: waits and windows are fine here. A RunTimeError
  // is reported.
  virtual void OnRaised(LParam value) = 0;
};

}  // namespace corvel
