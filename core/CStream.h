#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/Export.h"
#include "core/IStream.h"
#include "core/Object.h"
#include "core/Variant.h"

namespace ringbook {

class BufferedFile;

/// The binary stream through which every saved record is written and read:
/// one open file, values in a fixed little-endian encoding at a 1-based
/// position, and a safe-overwrite mode that writes to "<Filename>.tmp" and
/// puts it in place of the target only on `CloseStream`.
///
/// No operation throws. A failure is posted to the thread's error state
/// (`LastError`) and the operation returns normally: reads then yield zero or
/// the empty text, writes are dropped. Error numbers: 0x80040201 on open,
/// 0x80040202 "EOF" on a short read, 0x80040204 on a write.
///
/// Strings are stored one byte per character in Windows-1252.
class RINGBOOK_EXPORT CStream : public Object {
 public:
  CStream();
  /// Closes the file without committing: an unfinished save leaves the target
  /// as it was.
  ~CStream() override;
  CStream(const CStream&) = delete;
  CStream& operator=(const CStream&) = delete;

  /// Closes the file; in overwrite mode then commits the temporary file over
  /// the target (every time it is called).
  void CloseStream();

  const std::string& Filename() const { return filename_; }
  /// Sets the target and recomputes the temporary name (target + ".tmp").
  void SetFilename(const std::string& filename);
  const std::string& TempFilename() const { return temp_filename_; }

  /// Opens the target (or, with `OverwriteFile`, the temporary file) for
  /// reading and writing at position 1. A missing file is created; an
  /// existing one is not truncated.
  void OpenStream(bool OverwriteFile = false);

  /// Opens the target read-only, lets `obj` read itself, closes. A missing
  /// file reads as nothing, without an error.
  void ReadFile(IStream& obj, int32_t Position = 0);
  /// Opens as `OpenStream`, lets `obj` save itself, closes and in overwrite
  /// mode commits (even when the open failed).
  void WriteFile(IStream& obj, int32_t Position = 0, bool OverwriteFile = false);

  bool ReadBln();
  uint8_t ReadByte();
  double ReadDate();
  int16_t ReadInt();
  int32_t ReadLng();
  float ReadSng();
  /// With `FixedLength` below 1: a 32-bit count and that many characters (a
  /// negative count reads as the empty text). Otherwise exactly `FixedLength`
  /// characters, untrimmed. Never reads or allocates past the file's end.
  std::string ReadStr(int32_t FixedLength = 0);
  /// A 16-bit type tag and the value in its own encoding; a text carries a
  /// 16-bit count.
  Variant ReadVar();

  /// The 1-based position of the next byte read or written.
  int32_t SeekTo() const;
  void SetSeekTo(int32_t position);

  void WriteBln(bool bBln);
  void WriteByte(uint8_t yByte);
  void WriteDate(double dDate);
  void WriteInt(int16_t iInt);
  void WriteLng(int32_t lLng);
  void WriteSng(float fSng);
  /// With `FixedLength` below 1: the 32-bit character count and the
  /// characters. Otherwise exactly `FixedLength` characters, padded with
  /// blanks or cut.
  void WriteStr(const std::string& sStr, int32_t FixedLength = 0);
  /// Writes the value's type tag and the value. Empty and Null write the tag
  /// alone; an object cannot be written; texts longer than 65535 characters
  /// are cut to fit their 16-bit count.
  void WriteVar(const Variant& vVar);

 private:
  bool Open(bool overwrite);
  void Commit();
  bool ReadRaw(void* out, std::size_t n, const char* source);
  bool WriteRaw(const void* in, std::size_t n, const char* source);
  std::string ReadChars(uint64_t count, const char* source);

  std::string filename_;
  std::string temp_filename_;
  bool overwrite_ = false;
  std::unique_ptr<BufferedFile> file_;
};

}  // namespace ringbook
