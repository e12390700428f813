#pragma once

#include <string>

#include "core/Export.h"
#include "core/Variant.h"

namespace ringbook {

/// A performance figure as the fighter lists and rankings show it, in the
/// number pattern "#.00#": at least two and at most three decimals, and no
/// zero before the decimal point (0.5 shows as ".50", 12.3456 as "12.346",
/// 0 as ".00"). The figure is taken to 15 significant digits, as the runtime
/// prints a Double, and rounded half away from zero at the third decimal; a
/// minus sign is shown only when the rounded figure is not zero.
///
/// Null and Empty (no performance) show as the empty text, which is what
/// marks a fighter as unranked. Text that reads as a number is shown as that
/// number; other text is shown as it is. Booleans count as -1 and 0.
RINGBOOK_EXPORT std::string PerformanceText(const Variant& performance);

}  // namespace ringbook
