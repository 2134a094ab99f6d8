// What GoogleTest needs where the language has no threads: its own place for such things. Its
// threads serve its own tests only, so no notice is ever waited for here.
#pragma once

#define GTEST_HAS_NOTIFICATION_ 1

namespace testing::internal {

class Notification {
 public:
  void Notify() {}
  void WaitForNotification() {}
};

}  // namespace testing::internal
