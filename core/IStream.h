#pragma once

#include <cstdint>

namespace ringbook {

class CStream;

/// The contract of an object that reads or saves itself through a stream
/// that a caller has opened for it (`CStream::ReadFile`, `CStream::WriteFile`).
///
/// `Position` is handed on as given when it is 1 or more and as 0 otherwise;
/// the stream does not seek to it. In C++ the open stream is handed to the
/// object as well; through COM the object keeps its own reference to it.
class IStream {
 public:
  virtual ~IStream() = default;
  virtual void ReadObjectData(CStream& stream, int32_t position) = 0;
  virtual void SaveObjectData(CStream& stream, int32_t position) = 0;
};

}  // namespace ringbook
