#include "core/DefaultDisplayText.h"

namespace ringbook {

// Placeholder wording until the people records land; each text is the code.
std::string DefaultDisplayText::BiasText(int32_t bias) { return std::to_string(bias); }
std::string DefaultDisplayText::RefereeRatingText(int16_t rating) { return std::to_string(rating); }
std::string DefaultDisplayText::SpecialtyText(int16_t specialty) {
  return std::to_string(specialty);
}
std::string DefaultDisplayText::EraText(int16_t era) { return std::to_string(era); }

}  // namespace ringbook
