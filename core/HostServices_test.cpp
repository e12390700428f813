#include "core/HostServices.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "core/SeededDice.h"

namespace ringbook {
namespace {

class FixedDice : public IDice {
 public:
  int32_t Roll(int32_t, int32_t lower) override { return lower; }
};

class RecordingSink : public IMessageSink {
 public:
  void Show(const std::string& text) override { shown.push_back(text); }
  std::vector<std::string> shown;
};

// A replacement is used by its own thread only, until nullptr restores a
// default.
TEST(HostServicesTest, EachThreadKeepsItsReplacementUntilReset) {
  IDice& original = Dice();
  EXPECT_NE(dynamic_cast<SeededDice*>(&original), nullptr);
  EXPECT_EQ(&Dice(), &original);  // kept for the thread

  auto fixed = std::make_shared<FixedDice>();
  SetDice(fixed);
  EXPECT_EQ(Dice().Roll(6, 1), 1);
  auto sink = std::make_shared<RecordingSink>();
  SetMessageSink(sink);

  const IDice* other_dice = nullptr;
  const IMessageSink* other_sink = nullptr;
  std::thread([&] {
    other_dice = &Dice();
    other_sink = &MessageSink();
  }).join();
  EXPECT_NE(other_dice, fixed.get());
  EXPECT_NE(other_sink, sink.get());
  EXPECT_EQ(&Dice(), fixed.get());

  ShowMessage("Stop in NJudges.UpdateRecord");
  EXPECT_EQ(sink->shown, std::vector<std::string>{"Stop in NJudges.UpdateRecord"});
  SetDice(nullptr);
  SetMessageSink(nullptr);
  EXPECT_NE(&Dice(), fixed.get());
  EXPECT_NE(dynamic_cast<SeededDice*>(&Dice()), nullptr);
}

}  // namespace
}  // namespace ringbook
