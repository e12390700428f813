#pragma once

#include <string>
#include <string_view>

#include "core/CStream.h"
#include "core/Text.h"

namespace ringbook::people {

/// The display name of an official: the trimmed first name, one blank and
/// the trimmed last name. The blank is always there, so a person with
/// neither name is named " ".
inline std::string JoinFirstLast(std::string_view first, std::string_view last) {
  return text::Trim(first) + " " + text::Trim(last);
}

/// An official's first and last names with the display name kept in step:
/// each setter rebuilds it, so the copies in the announcer and the judge
/// cannot drift apart.
class FirstLastName {
 public:
  const std::string& First() const { return first_; }
  const std::string& Last() const { return last_; }
  const std::string& Name() const { return name_; }
  void SetFirst(const std::string& value) {
    first_ = value;
    name_ = JoinFirstLast(first_, last_);
  }
  void SetLast(const std::string& value) {
    last_ = value;
    name_ = JoinFirstLast(first_, last_);
  }
  /// The two names as the records carry them: first, then last.
  void Write(CStream& stream) const {
    stream.WriteStr(first_);
    stream.WriteStr(last_);
  }
  void Read(CStream& stream) {
    SetFirst(stream.ReadStr());
    SetLast(stream.ReadStr());
  }

 private:
  std::string first_;
  std::string last_;
  std::string name_ = " ";
};

}  // namespace ringbook::people
