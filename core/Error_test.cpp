#include "core/Error.h"

#include <gtest/gtest.h>

#include <thread>

namespace ringbook {
namespace {

TEST(ErrorTest, PostedErrorsBelongToTheirThread) {
  ClearLastError();
  PostError(static_cast<int32_t>(0x80040202u), "Stream:ReadLng", "EOF");
  int32_t other = -1;
  std::thread([&] {
    other = LastError().Number;
    PostError(1, "elsewhere", "elsewhere");
  }).join();
  EXPECT_EQ(other, 0);
  EXPECT_EQ(LastError().Number, static_cast<int32_t>(0x80040202u));
  EXPECT_EQ(LastError().Source, "Stream:ReadLng");
  ClearLastError();
  EXPECT_EQ(LastError().Number, 0);
  EXPECT_EQ(LastError().Source, "");
  EXPECT_EQ(LastError().Description, "");
}

}  // namespace
}  // namespace ringbook
