#pragma once

namespace ringbook {

/// Base of every object that a `Variant` can hold: records, collections,
/// streams and the host's controls. Lets a value of any type carry an object
/// reference and lets a collection check the class of what it is handed.
class Object {
 public:
  virtual ~Object() = default;
};

}  // namespace ringbook
