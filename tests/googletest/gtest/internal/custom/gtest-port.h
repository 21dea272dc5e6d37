// GoogleTest reads this from its own folder for what a platform has differently. The released program's compiler has no
// std::mutex, of which GoogleTest makes one class: for starting threads in tests of its own.
#pragma once

#define GTEST_HAS_NOTIFICATION_ 1
namespace testing::internal {
struct Notification {
    void WaitForNotification() {}
};
}  // namespace testing::internal
