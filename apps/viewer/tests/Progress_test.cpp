// SPDX-License-Identifier: MIT
#include "Progress.h"

#include <gtest/gtest.h>

namespace viewer {
namespace {

TEST(Progress, TellsPercentWhereTheSizeIsKnown) {
    EXPECT_EQ(progressText("a.csv", 450, 1000, 12), "reading a.csv: 45 %, 12 rows");
    // A file may grow while it is read.
    EXPECT_EQ(progressText("a.csv", 1500, 1000, 12), "reading a.csv: 100 %, 12 rows");
}

TEST(Progress, TellsMegabytesWhereItIsNot) {
    EXPECT_EQ(progressText("a.csv", 12345678, 0, 12), "reading a.csv: 12 MB, 12 rows");
}

TEST(Progress, SaysNothingWithinTheFirstSecond) {
    testing::internal::CaptureStderr();
    {
        Progress progress("a.csv");
        progress.update(1, 2, 3);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

} // namespace
} // namespace viewer
