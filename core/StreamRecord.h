#pragma once

#include <string>

#include "core/CStream.h"
#include "core/Export.h"

namespace ringbook {

/// The save-and-load pattern of the component's own saveable classes: a
/// class writes and reads its fields (and hands the stream on to the records
/// it contains) in `WriteToStream` / `ReadFromStream`; `SaveToFile` and
/// `LoadFromFile` wrap that in a fresh stream.
///
/// A save always goes through the temporary file, so a failed or interrupted
/// save leaves the old file as it was; a load reads the target in place and
/// leaves fields zero or empty where the file ends early. Neither throws:
/// failures are posted to the thread's error state.
class RINGBOOK_EXPORT StreamRecord {
 public:
  virtual ~StreamRecord() = default;

  /// Component-internal: writes this record at the stream's position.
  virtual void WriteToStream(CStream& stream) = 0;
  /// Component-internal: reads this record at the stream's position.
  virtual void ReadFromStream(CStream& stream) = 0;

  /// New stream on `Filename`, `OpenStream(true)`, `WriteToStream`, `CloseStream`.
  void SaveToFile(const std::string& Filename);
  /// New stream on `Filename`, `OpenStream(false)`, `ReadFromStream`, `CloseStream`.
  void LoadFromFile(const std::string& Filename);
};

}  // namespace ringbook
