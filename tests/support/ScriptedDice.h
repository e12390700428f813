#pragma once

#include <cstdint>
#include <deque>
#include <memory>

#include "core/HostServices.h"

namespace ringbook::test {

/// Dice that return the values a test queues, in order, and check the bounds
/// of each roll. A roll with different bounds, a roll when the queue is empty,
/// or queued values left unrolled when the dice go, fail the running test.
class ScriptedDice : public IDice {
 public:
  ScriptedDice() = default;
  ~ScriptedDice() override;
  ScriptedDice(const ScriptedDice&) = delete;
  ScriptedDice& operator=(const ScriptedDice&) = delete;

  /// Queues `value` for a roll that must ask for `lower` to `upper`.
  ScriptedDice& Then(int32_t value, int32_t upper = 100, int32_t lower = 1);

  int32_t Roll(int32_t upper, int32_t lower) override;

  /// Rolls made so far.
  int Rolled() const { return rolled_; }
  /// Queued rolls not made yet.
  std::size_t Left() const { return queue_.size(); }

 private:
  struct Expected {
    int32_t value;
    int32_t upper;
    int32_t lower;
  };
  std::deque<Expected> queue_;
  int rolled_ = 0;
};

/// Makes `dice` the calling thread's dice for the scope; restores the default
/// on leaving it.
class DiceScope {
 public:
  explicit DiceScope(std::shared_ptr<IDice> dice) { SetDice(std::move(dice)); }
  ~DiceScope() { SetDice(nullptr); }
  DiceScope(const DiceScope&) = delete;
  DiceScope& operator=(const DiceScope&) = delete;
};

/// Installs a fresh `ScriptedDice` for the scope: `dice.Then(...)`.
class ScriptedDiceScope {
 public:
  ScriptedDiceScope() : dice_(std::make_shared<ScriptedDice>()), scope_(dice_) {}
  ScriptedDice& operator*() { return *dice_; }
  ScriptedDice* operator->() { return dice_.get(); }

 private:
  std::shared_ptr<ScriptedDice> dice_;
  DiceScope scope_;
};

}  // namespace ringbook::test
