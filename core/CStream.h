#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

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
/// `pos` is the file position as an offset into the window, never beyond
/// `len`; when the position lies outside the window it is `kDetached`, which
/// fails every bounds check, and the file keeps the position itself.
///
/// Inline writes need only one bounds check because the file arms them
/// (`room` above 0) only while every byte from `pos` on already counts as
/// dirty: it arms on a write, which marks its own start dirty, and disarms on
/// whatever could move the position below `dirty_lo` or clean the window.
/// While armed, the inline writes leave `len` behind: the data then ends at
/// `pos` if that is further, and the file settles `len` before it uses it.
struct StreamWindow {
  static constexpr std::size_t kSize = 64 * 1024;
  /// Bytes allocated past the window, never file data, so that a short text
  /// near its end can be read as whole words.
  static constexpr std::size_t kSlack = 16;
  static constexpr std::size_t kDetached = SIZE_MAX / 2;
  unsigned char* base = nullptr;
  std::size_t pos = kDetached;
  std::size_t len = 0;              // bytes of the window that hold file data
  std::size_t room = 0;             // inline writes may end there; 0 when not armed
  std::size_t dirty_lo = SIZE_MAX;  // first byte that may differ from the file

  /// Brings `len` up to the end of the inline writes.
  void Settle() {
    if (room != 0 && pos > len) len = pos;
  }
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

  // The fixed-width readers and writers work on the buffer window inline,
  // one bounds check and one copy; everything else (an empty or moved
  // window, the end of the file, a closed or read-only file) goes through
  // the out-of-line slow paths, which also post the errors.
  bool Fetch(std::size_t n, const unsigned char*& p) {
    if (win_.pos + n <= win_.len) {
      p = win_.base + win_.pos;
      win_.pos += n;
      return true;
    }
    return false;
  }
  bool Room(std::size_t n, unsigned char*& p) {
    const std::size_t pos = win_.pos;
    if (pos + n <= win_.room) {
      win_.pos = pos + n;
      p = win_.base + pos;
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
