#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "core/Coding.h"
#include "core/Export.h"
#include "core/IStream.h"
#include "core/Object.h"
#include "core/Variant.h"

namespace ringbook {

class BufferedFile;

namespace detail {
/// The buffered bytes of a stream's open file as the stream's inline readers
/// and writers see them; the file fills, moves and writes back the window.
/// `cur` is the file position as a pointer into the window, never beyond
/// `end`, the end of the file data there. While the position lies outside
/// the window, `cur` sits just past it (offset `kDetached`), which fails
/// every bounds check, and the file keeps the position itself. The window is
/// allocated with `kSlack` bytes more, never file data, so that the bounds
/// checks and the word-wise reads of short texts stay inside it.
///
/// Inline writes need only one bounds check because the file arms them
/// (`limit` past `base`) only while every byte from `cur` on already counts
/// as dirty: it arms on a write, which marks its own start dirty, and
/// disarms on whatever could move the position below `dirty_lo` or clean the
/// window. While armed, the inline writes leave `end` behind: the data then
/// ends at `cur` if that is further, and the file settles `end` before it
/// uses it.
struct StreamWindow {
  // Each move of the window is one system write or read, and on most file
  // systems each write also stamps the file's modification time: a large
  // window keeps a long save or load to a few dozen calls.
  static constexpr std::size_t kSize = 256 * 1024;
  static constexpr std::size_t kSlack = 32;
  static constexpr std::size_t kDetached = kSize + 1;
  unsigned char* base = nullptr;
  unsigned char* cur = nullptr;
  unsigned char* end = nullptr;
  unsigned char* limit = nullptr;   // inline writes may end there; `base` when not armed
  std::size_t dirty_lo = SIZE_MAX;  // first byte that may differ from the file

  // The same as offsets into the window, for the file's bookkeeping.
  std::size_t Pos() const { return static_cast<std::size_t>(cur - base); }
  std::size_t Len() const { return static_cast<std::size_t>(end - base); }
  void SetPos(std::size_t pos) { cur = base + pos; }
  void SetLen(std::size_t len) { end = base + len; }
  bool Armed() const { return limit != base; }
  void Arm() { limit = base + kSize; }
  void Disarm() { limit = base; }
  /// The length of the file data in the window, counting inline writes
  /// past `end`.
  std::size_t DataLen() const { return Armed() && cur > end ? Pos() : Len(); }
  /// Brings `end` up to the end of the inline writes.
  void Settle() { SetLen(DataLen()); }
};
}  // namespace detail

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

  bool ReadBln() {
    const unsigned char* p;
    return Fetch(2, p) ? coding::DecodeFixed16(p) != 0 : ReadBlnSlow();
  }
  uint8_t ReadByte() {
    const unsigned char* p;
    return Fetch(1, p) ? *p : ReadByteSlow();
  }
  double ReadDate() {
    const unsigned char* p;
    return Fetch(8, p) ? coding::DoubleFromBits(coding::DecodeFixed64(p)) : ReadDateSlow();
  }
  int16_t ReadInt() {
    const unsigned char* p;
    return Fetch(2, p) ? static_cast<int16_t>(coding::DecodeFixed16(p)) : ReadIntSlow();
  }
  int32_t ReadLng() {
    const unsigned char* p;
    return Fetch(4, p) ? static_cast<int32_t>(coding::DecodeFixed32(p)) : ReadLngSlow();
  }
  float ReadSng() {
    const unsigned char* p;
    return Fetch(4, p) ? coding::FloatFromBits(coding::DecodeFixed32(p)) : ReadSngSlow();
  }
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

  void WriteBln(bool bBln) {
    unsigned char* p;
    if (Room(2, p)) {
      coding::EncodeFixed16(p, bBln ? 0xFFFF : 0);
    } else {
      WriteBlnSlow(bBln);
    }
  }
  void WriteByte(uint8_t yByte) {
    unsigned char* p;
    if (Room(1, p)) {
      *p = yByte;
    } else {
      WriteByteSlow(yByte);
    }
  }
  void WriteDate(double dDate) {
    unsigned char* p;
    if (Room(8, p)) {
      coding::EncodeFixed64(p, coding::DoubleBits(dDate));
    } else {
      WriteDateSlow(dDate);
    }
  }
  void WriteInt(int16_t iInt) {
    unsigned char* p;
    if (Room(2, p)) {
      coding::EncodeFixed16(p, static_cast<uint16_t>(iInt));
    } else {
      WriteIntSlow(iInt);
    }
  }
  void WriteLng(int32_t lLng) {
    unsigned char* p;
    if (Room(4, p)) {
      coding::EncodeFixed32(p, static_cast<uint32_t>(lLng));
    } else {
      WriteLngSlow(lLng);
    }
  }
  void WriteSng(float fSng) {
    unsigned char* p;
    if (Room(4, p)) {
      coding::EncodeFixed32(p, coding::FloatBits(fSng));
    } else {
      WriteSngSlow(fSng);
    }
  }
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
  std::string ReadStrSlow(int32_t FixedLength);
  void WriteStrSlow(const std::string& sStr, int32_t FixedLength);
  void WriteConverted(unsigned char* p, std::string_view utf8);

  // The fixed-width readers and writers work on the buffer window inline,
  // one bounds check and one copy; everything else (an empty or moved
  // window, the end of the file, a closed or read-only file) goes through
  // the out-of-line slow paths, which also post the errors.
  bool Fetch(std::size_t n, const unsigned char*& p) {
    if (win_.cur + n <= win_.end) {
      p = win_.cur;
      win_.cur += n;
      return true;
    }
    return false;
  }
  bool Room(std::size_t n, unsigned char*& p) {
    if (win_.cur + n <= win_.limit) {
      p = win_.cur;
      win_.cur += n;
      return true;
    }
    return false;
  }
  bool ReadBlnSlow();
  uint8_t ReadByteSlow();
  double ReadDateSlow();
  int16_t ReadIntSlow();
  int32_t ReadLngSlow();
  float ReadSngSlow();
  void WriteBlnSlow(bool value);
  void WriteByteSlow(uint8_t value);
  void WriteDateSlow(double value);
  void WriteIntSlow(int16_t value);
  void WriteLngSlow(int32_t value);
  void WriteSngSlow(float value);

  std::string filename_;
  std::string temp_filename_;
  bool overwrite_ = false;
  detail::StreamWindow win_;  // before `file_`, which refers to it
  std::unique_ptr<BufferedFile> file_;
};

}  // namespace ringbook
