#pragma once

#include <string>
#include <string_view>

#include "core/Text.h"

namespace ringbook::people_impl {

/// The display name of an official: the trimmed first name, one blank and
/// the trimmed last name. The blank is always there, so a person with
/// neither name is named " ".
inline std::string JoinFirstLast(std::string_view first, std::string_view last) {
  return text::Trim(first) + " " + text::Trim(last);
}

}  // namespace ringbook::people_impl
