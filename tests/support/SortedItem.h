#pragma once

#include <memory>
#include <string>
#include <utility>

#include "core/Variant.h"
#include "schedule/ISortedObject.h"

namespace ringbook::test {

/// A sorted object with a fixed key and a tag that tells equal keys apart.
class SortedItem : public ISortedObject {
 public:
  SortedItem(Variant key, std::string tag) : key_(std::move(key)), tag_(std::move(tag)) {}
  Variant SortKey() const override { return key_; }
  const std::string& Tag() const { return tag_; }

 private:
  Variant key_;
  std::string tag_;
};

/// A `SortedItem` as a collection holds it.
inline Variant Sorted(Variant key, std::string tag = "") {
  return Variant(std::make_shared<SortedItem>(std::move(key), std::move(tag)));
}

}  // namespace ringbook::test
