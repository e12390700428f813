#pragma once

#include "core/HostServices.h"

namespace ringbook {

/// The default lookup object: proficiency bands on a 0 to 100 scale and the
/// English texts of fighting styles and of the active/retired state. The
/// bands and texts are listed in docs/lookup-texts.md.
class RINGBOOK_EXPORT DefaultLookup : public ILookup {
 public:
  /// Filter 0 and any filter without a band of its own: every fighter
  /// (-32768 to 32767). Filters 1 to 4: 0-24, 25-49, 50-74, 75-32767.
  ProficiencyBounds Proficiency(int16_t filter) override;
  /// A code without a text, or a category other than the two known ones,
  /// shows as the code's number.
  std::string Text(int32_t category, int32_t code) override;
};

}  // namespace ringbook
