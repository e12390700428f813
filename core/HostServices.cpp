#include "core/HostServices.h"

#include "core/DefaultDisplayText.h"
#include "core/DefaultLookup.h"
#include "core/DefaultSettings.h"
#include "core/DefaultUtility.h"
#include "core/SeededDice.h"
#include "core/StderrMessageSink.h"

namespace ringbook {
namespace {

// One slot per kind of host object and thread: the default is made on first
// use, a replacement takes effect at once.
template <class Interface, class Default>
struct ThreadSlot {
  static std::shared_ptr<Interface>& Get() {
    thread_local std::shared_ptr<Interface> slot;
    return slot;
  }
  static Interface& Current() {
    auto& slot = Get();
    if (!slot) slot = std::make_shared<Default>();
    return *slot;
  }
};

using SettingsSlot = ThreadSlot<ISettings, DefaultSettings>;
using DiceSlot = ThreadSlot<IDice, SeededDice>;

// The engine asks for the dice once per punch and knock-out check, thousands
// of times a bout, so the thread keeps a plain pointer beside the owning slot:
// trivially constructed thread-locals need no first-use guard, and the common
// call is a single load. The pointer always equals the slot's, or is null
// until the first use or after `SetDice(nullptr)`.
thread_local IDice* current_dice = nullptr;

[[gnu::noinline, gnu::cold]] IDice& MakeDefaultDice() {
  current_dice = &DiceSlot::Current();
  return *current_dice;
}
using UtilitySlot = ThreadSlot<IUtility, DefaultUtility>;
using SinkSlot = ThreadSlot<IMessageSink, StderrMessageSink>;
using DisplayTextSlot = ThreadSlot<IDisplayText, DefaultDisplayText>;
using LookupSlot = ThreadSlot<ILookup, DefaultLookup>;

}  // namespace

ISettings& Settings() {
  return SettingsSlot::Current();
}
IDice& Dice() {
  if (IDice* dice = current_dice) [[likely]]
    return *dice;
  return MakeDefaultDice();
}
IUtility& Utility() {
  return UtilitySlot::Current();
}
IMessageSink& MessageSink() {
  return SinkSlot::Current();
}
IDisplayText& DisplayText() {
  return DisplayTextSlot::Current();
}
ILookup& Lookup() {
  return LookupSlot::Current();
}

std::shared_ptr<ISettings> CurrentSettings() {
  return SettingsSlot::Get();
}

void SetSettings(std::shared_ptr<ISettings> settings) {
  SettingsSlot::Get() = std::move(settings);
}
void SetDice(std::shared_ptr<IDice> dice) {
  current_dice = dice.get();
  DiceSlot::Get() = std::move(dice);
}
void SetUtility(std::shared_ptr<IUtility> utility) {
  UtilitySlot::Get() = std::move(utility);
}
void SetMessageSink(std::shared_ptr<IMessageSink> sink) {
  SinkSlot::Get() = std::move(sink);
}

void SetDisplayText(std::shared_ptr<IDisplayText> display_text) {
  DisplayTextSlot::Get() = std::move(display_text);
}
void SetLookup(std::shared_ptr<ILookup> lookup) {
  LookupSlot::Get() = std::move(lookup);
}

void ShowMessage(const std::string& text) {
  MessageSink().Show(text);
}

}  // namespace ringbook
