#pragma once

#include "core/HostServices.h"

namespace ringbook {

/// The default display texts (English). The wording of each code is listed
/// in docs/display-texts.md.
class RINGBOOK_EXPORT DefaultDisplayText : public IDisplayText {
 public:
  std::string BiasText(int32_t bias) override;
  std::string RefereeRatingText(int16_t rating) override;
  std::string SpecialtyText(int16_t specialty) override;
  std::string EraText(int16_t era) override;
};

}  // namespace ringbook
