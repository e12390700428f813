#include "support/ScriptedDice.h"

#include <gtest/gtest.h>

namespace ringbook::test {

ScriptedDice::~ScriptedDice() {
  EXPECT_TRUE(queue_.empty()) << queue_.size() << " scripted roll(s) were never made";
}

ScriptedDice& ScriptedDice::Then(int32_t value, int32_t upper, int32_t lower) {
  queue_.push_back({value, upper, lower});
  return *this;
}

int32_t ScriptedDice::Roll(int32_t upper, int32_t lower) {
  ++rolled_;
  if (queue_.empty()) {
    ADD_FAILURE() << "roll " << rolled_ << " (" << upper << ", " << lower
                  << ") made with no scripted value left";
    return lower;
  }
  const Expected next = queue_.front();
  queue_.pop_front();
  EXPECT_EQ(upper, next.upper) << "upper bound of roll " << rolled_;
  EXPECT_EQ(lower, next.lower) << "lower bound of roll " << rolled_;
  return next.value;
}

}  // namespace ringbook::test
