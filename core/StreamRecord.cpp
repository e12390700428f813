#include "core/StreamRecord.h"

namespace ringbook {

void StreamRecord::SaveToFile(const std::string& Filename) {
  CStream stream;
  stream.SetFilename(Filename);
  stream.OpenStream(true);
  WriteToStream(stream);
  stream.CloseStream();
}

void StreamRecord::LoadFromFile(const std::string& Filename) {
  CStream stream;
  stream.SetFilename(Filename);
  stream.OpenStream(false);
  ReadFromStream(stream);
  stream.CloseStream();
}

}  // namespace ringbook
