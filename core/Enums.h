#pragma once

#include <cstdint>

namespace ringbook {

/// The sections of a fighter record: what `CFighter::Clone` copies and what
/// `NFighters::UpdatePartialRecord` writes.
enum ERecordSection : int32_t {
  ersAll = 0,
  ersProfile = 1,
  ersCareer = 2,
};

/// The kinds of change a bound list control follows.
enum EUpdateListbox : int32_t {
  updListAdd = 0,
  updListUpdate = 1,
  updListRemove = 2,
  updListAddDefaults = 3,
  updListClear = 4,
};

}  // namespace ringbook
