#pragma once

#include <string>

#include "core/HostServices.h"

namespace ringbook::test {

/// Display texts that show which operation made them: "bias:3", "rating:2",
/// "specialty:1", "era:0".
class DisplayTextDouble : public IDisplayText {
 public:
  std::string BiasText(int32_t bias) override { return "bias:" + std::to_string(bias); }
  std::string RefereeRatingText(int16_t rating) override {
    return "rating:" + std::to_string(rating);
  }
  std::string SpecialtyText(int16_t specialty) override {
    return "specialty:" + std::to_string(specialty);
  }
  std::string EraText(int16_t era) override { return "era:" + std::to_string(era); }
};

}  // namespace ringbook::test
