#include "core/CStream.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "core/BufferedFile_impl.h"
#include "core/Coding.h"
#include "core/Error.h"
#include "core/HostServices.h"
#include "core/Text.h"

namespace ringbook {
namespace {

constexpr const char* kOpenSource = "Stream:WriteFile";
constexpr const char* kReadFileSource = "Stream:ReadFile";
constexpr const char* kWriteStrSource = "Stream:WriteStr";
// The text the runtime gives for an operation on a file that is not open.
constexpr const char* kNotOpenText = "Bad file name or number";
constexpr uint32_t kMaxVarChars = 0xFFFF;

// A short text of `n` bytes (1 to 15) taken as two overlapping words:
// `head`, its first eight bytes, and `tail`, the eight bytes that end it
// (starting at `tail_at`; the same as `head` for a text shorter than eight
// bytes). Past such a short text `head` holds whatever follows it, which
// `ShortTextIsAscii` masks off.
bool ShortTextIsAscii(uint64_t head, uint64_t tail, std::size_t n) {
  const uint64_t mask = ~0ull >> 8 * (8 - std::min<std::size_t>(n, 8));
  return ((head | tail) & mask & 0x8080808080808080ull) == 0;
}

// The string of such a text, built in its own inline buffer without a call.
std::string ShortTextFromWords(uint64_t head, uint64_t tail, std::size_t tail_at, std::size_t n) {
  std::string s(text::detail::kShortText, '\0');
  auto* const p = reinterpret_cast<unsigned char*>(s.data());
  coding::EncodeFixed64(p, head);
  coding::EncodeFixed64(p + tail_at, tail);
  s.erase(n);
  return s;
}

void PostEof(const char* source) {
  PostError(errnum::kStreamEof, source, "EOF");
}

std::string SystemText(int error) {
  return std::strerror(error);
}

// The failure paths are kept out of line so that the fixed-width readers and
// writers compile to a bounds check and a copy into the buffer window.
[[gnu::noinline, gnu::cold]] void ShortRead(void* out, std::size_t got, std::size_t n,
                                            const char* source) {
  std::memset(static_cast<unsigned char*>(out) + got, 0, n - got);
  PostEof(source);
}

[[gnu::noinline, gnu::cold]] void WriteFailed(const char* source) {
  // The seven typed writers deliberately carry no system text.
  PostError(errnum::kStreamWrite, source, "Write Error: ");
}

}  // namespace

CStream::CStream() : file_(std::make_unique<BufferedFile>(win_)) {}

CStream::~CStream() = default;

void CStream::SetFilename(const std::string& filename) {
  filename_ = filename;
  temp_filename_ = filename + ".tmp";
}

bool CStream::Open(bool overwrite) {
  ClearLastError();
  overwrite_ = overwrite;
  file_->Close();  // a second open replaces the first file
  int error = 0;
  const std::string& path = overwrite ? temp_filename_ : filename_;
  if (path.empty()) {
    error = ENOENT;
  } else if (file_->Open(path, BufferedFile::Mode::kReadWrite, error)) {
    return true;
  }
  PostError(errnum::kStreamOpen, kOpenSource, "Error opening file: " + SystemText(error));
  return false;
}

void CStream::Commit() {
  try {
    Utility().ReplaceFile(filename_, temp_filename_);
  } catch (const Error& e) {
    PostError(e.Number(), e.Source(), e.Description());
  } catch (const std::exception& e) {
    PostError(errnum::kStreamWrite, "Stream:CloseStream", std::string("Write Error: ") + e.what());
  }
}

void CStream::CloseStream() {
  if (!file_->Close()) {
    PostError(errnum::kStreamWrite, "Stream:CloseStream", "Write Error: " + SystemText(EIO));
  }
  if (overwrite_) Commit();
}

void CStream::OpenStream(bool OverwriteFile) {
  Open(OverwriteFile);
}

void CStream::ReadFile(IStream& obj, int32_t Position) {
  ClearLastError();
  file_->Close();
  int error = 0;
  if (!file_->Open(filename_, BufferedFile::Mode::kReadOnly, error)) {
    if (error != ENOENT) PostError(errnum::kStreamOpen, kReadFileSource, "Error opening file.");
    return;
  }
  obj.ReadObjectData(*this, Position >= 1 ? Position : 0);
  file_->Close();
}

void CStream::WriteFile(IStream& obj, int32_t Position, bool OverwriteFile) {
  if (Open(OverwriteFile)) obj.SaveObjectData(*this, Position >= 1 ? Position : 0);
  CloseStream();
}

int32_t CStream::SeekTo() const {
  return static_cast<int32_t>(file_->Position() + 1);
}

void CStream::SetSeekTo(int32_t position) {
  if (position < 1) {
    PostError(63, "Stream:SeekTo", "Bad record number");
    return;
  }
  file_->Seek(static_cast<uint64_t>(position) - 1);
}

// ---- reading ----

inline bool CStream::ReadRaw(void* out, std::size_t n, const char* source) {
  const std::size_t got = file_->Read(out, n);
  if (got == n) [[likely]]
    return true;
  ShortRead(out, got, n, source);
  return false;
}

// The slow paths of the inline readers: the window does not hold the value
// (it has moved, the file is closed, or the file ends early).

bool CStream::ReadBlnSlow() {
  unsigned char b[2];
  ReadRaw(b, 2, "Stream:ReadBln");
  return coding::DecodeFixed16(b) != 0;
}

uint8_t CStream::ReadByteSlow() {
  unsigned char b[1];
  ReadRaw(b, 1, "Stream:ReadByte");
  return b[0];
}

double CStream::ReadDateSlow() {
  unsigned char b[8];
  ReadRaw(b, 8, "Stream:ReadDate");
  return coding::DoubleFromBits(coding::DecodeFixed64(b));
}

int16_t CStream::ReadIntSlow() {
  unsigned char b[2];
  ReadRaw(b, 2, "Stream:ReadInt");
  return static_cast<int16_t>(coding::DecodeFixed16(b));
}

int32_t CStream::ReadLngSlow() {
  unsigned char b[4];
  ReadRaw(b, 4, "Stream:ReadLng");
  return static_cast<int32_t>(coding::DecodeFixed32(b));
}

float CStream::ReadSngSlow() {
  unsigned char b[4];
  ReadRaw(b, 4, "Stream:ReadSng");
  return coding::FloatFromBits(coding::DecodeFixed32(b));
}

[[gnu::noinline]] std::string CStream::ReadChars(uint64_t count, const char* source) {
  // Usually the whole text is in the buffer window already, and most texts
  // are plain ASCII: then it is copied once, straight into the result.
  if (count <= SIZE_MAX) {
    const unsigned char* p;
    if (file_->Take(static_cast<std::size_t>(count), p)) {
      const std::string_view bytes(reinterpret_cast<const char*>(p),
                                   static_cast<std::size_t>(count));
      return text::FromAnsi(bytes);
    }
  }
  // Never allocate more than the file still holds, whatever a damaged count says.
  const uint64_t pos = file_->Position();
  const uint64_t left = file_->IsOpen() && file_->Size() > pos ? file_->Size() - pos : 0;
  const std::size_t n = static_cast<std::size_t>(count < left ? count : left);
  std::string bytes(n, '\0');
  const std::size_t got = n == 0 ? 0 : file_->Read(bytes.data(), n);
  bytes.resize(got);
  if (got < count) PostEof(source);
  return text::FromAnsi(bytes);
}

std::string CStream::ReadStr(int32_t FixedLength) {
  // Usually count and characters are both in the window already, and the
  // text is plain ASCII: then it is copied once, straight into the result.
  unsigned char* const at = win_.cur;
  if (FixedLength < 1 && at + 4 <= win_.end) [[likely]] {
    const auto count = static_cast<int32_t>(coding::DecodeFixed32(at));
    if (count > 0 && static_cast<std::size_t>(count) <= static_cast<std::size_t>(win_.end - at) - 4)
        [[likely]] {
      const auto n = static_cast<std::size_t>(count);
      const unsigned char* const chars = at + 4;
      win_.cur = at + 4 + n;
      if (n <= text::detail::kShortText) {
        // The window's slack lets a short text be taken as two words whatever
        // its length: no branch depends on the length, which varies from one
        // text to the next and would be mispredicted.
        const std::size_t tail_at = std::max<std::size_t>(n, 8) - 8;
        const uint64_t head = coding::DecodeFixed64(chars);
        const uint64_t tail = coding::DecodeFixed64(chars + tail_at);
        if (ShortTextIsAscii(head, tail, n)) return ShortTextFromWords(head, tail, tail_at, n);
      }
      return text::detail::FromAnsiConverting({reinterpret_cast<const char*>(chars), n});
    }
  }
  return ReadStrSlow(FixedLength);
}

[[gnu::noinline]] std::string CStream::ReadStrSlow(int32_t FixedLength) {
  constexpr const char* kSource = "Stream:ReadStr";
  if (FixedLength >= 1) return ReadChars(static_cast<uint64_t>(FixedLength), kSource);
  unsigned char b[4];
  if (!ReadRaw(b, 4, kSource)) return {};
  const auto count = static_cast<int32_t>(coding::DecodeFixed32(b));
  if (count <= 0) return {};
  return ReadChars(static_cast<uint64_t>(count), kSource);
}

Variant CStream::ReadVar() {
  constexpr const char* kSource = "Stream:ReadVar";
  unsigned char b[8];
  if (!ReadRaw(b, 2, kSource)) return {};
  const auto tag = static_cast<VarType>(coding::DecodeFixed16(b));
  switch (tag) {
    case VarType::Empty:
      return {};
    case VarType::Null:
      return Variant::Null();
    case VarType::Boolean:
      ReadRaw(b, 2, kSource);
      return Variant(coding::DecodeFixed16(b) != 0);
    case VarType::Byte:
      ReadRaw(b, 1, kSource);
      return Variant(static_cast<uint8_t>(b[0]));
    case VarType::Integer:
      ReadRaw(b, 2, kSource);
      return Variant(static_cast<int16_t>(coding::DecodeFixed16(b)));
    case VarType::Long:
      ReadRaw(b, 4, kSource);
      return Variant(static_cast<int32_t>(coding::DecodeFixed32(b)));
    case VarType::Single:
      ReadRaw(b, 4, kSource);
      return Variant(coding::FloatFromBits(coding::DecodeFixed32(b)));
    case VarType::Double:
      ReadRaw(b, 8, kSource);
      return Variant(coding::DoubleFromBits(coding::DecodeFixed64(b)));
    case VarType::Date:
      ReadRaw(b, 8, kSource);
      return Variant::FromDate(coding::DoubleFromBits(coding::DecodeFixed64(b)));
    case VarType::String: {
      if (!ReadRaw(b, 2, kSource)) return Variant(std::string());
      return Variant(ReadChars(coding::DecodeFixed16(b), kSource));
    }
    default:
      PostError(458, kSource, "Variable uses an Automation type not supported");
      return {};
  }
}

// ---- writing ----

inline bool CStream::WriteRaw(const void* in, std::size_t n, const char* source) {
  if (file_->Write(in, n)) [[likely]]
    return true;
  WriteFailed(source);
  return false;
}

// The slow paths of the inline writers: the value does not fit in the window
// as it stands (it must move, the file is closed or read-only).

void CStream::WriteBlnSlow(bool value) {
  unsigned char b[2];
  coding::EncodeFixed16(b, value ? 0xFFFF : 0);
  WriteRaw(b, 2, "Stream:WriteBln");
}

void CStream::WriteByteSlow(uint8_t value) {
  WriteRaw(&value, 1, "Stream:WriteByte");
}

void CStream::WriteDateSlow(double value) {
  unsigned char b[8];
  coding::EncodeFixed64(b, coding::DoubleBits(value));
  WriteRaw(b, 8, "Stream:WriteDate");
}

void CStream::WriteIntSlow(int16_t value) {
  unsigned char b[2];
  coding::EncodeFixed16(b, static_cast<uint16_t>(value));
  WriteRaw(b, 2, "Stream:WriteInt");
}

void CStream::WriteLngSlow(int32_t value) {
  unsigned char b[4];
  coding::EncodeFixed32(b, static_cast<uint32_t>(value));
  WriteRaw(b, 4, "Stream:WriteLng");
}

void CStream::WriteSngSlow(float value) {
  unsigned char b[4];
  coding::EncodeFixed32(b, coding::FloatBits(value));
  WriteRaw(b, 4, "Stream:WriteSng");
}

void CStream::WriteStr(const std::string& sStr, int32_t FixedLength) {
  // The usual text is short ASCII, written at the end of the data (a save):
  // its count and characters go straight into the window, and the cursor is
  // read once and stored once. The copy writes the characters before it
  // knows they are ASCII, which is harmless only where no file data lies.
  const std::string_view utf8 = sStr;
  unsigned char* const p = win_.cur;
  if (FixedLength < 1 && utf8.size() <= 16 && p + 4 + utf8.size() <= win_.limit && p >= win_.end)
      [[likely]] {
    if (text::detail::CopyShortIfAscii(utf8.data(), utf8.size(), reinterpret_cast<char*>(p + 4))) {
      coding::EncodeFixed32(p, static_cast<uint32_t>(utf8.size()));
      win_.cur = p + 4 + utf8.size();
      return;
    }
    WriteConverted(p, utf8);
    return;
  }
  WriteStrSlow(sStr, FixedLength);
}

// A text converted straight into the window at `p`, the end of the data,
// where it may scribble past its output. Windows-1252 never takes more bytes
// than UTF-8, so the room checked for the UTF-8 size is room enough.
[[gnu::noinline]] void CStream::WriteConverted(unsigned char* p, std::string_view utf8) {
  const std::size_t n = text::detail::ToAnsiConverting(utf8, reinterpret_cast<char*>(p + 4));
  coding::EncodeFixed32(p, static_cast<uint32_t>(n));
  win_.cur = p + 4 + n;
}

[[gnu::noinline]] void CStream::WriteStrSlow(const std::string& sStr, int32_t FixedLength) {
  // When count and characters fit in the window as it stands, the text is
  // converted straight into it. Windows-1252 never takes more bytes than
  // UTF-8, so the UTF-8 size is room enough. The conversion may scribble past
  // its output, so it works in place only where no file data lies there: at
  // the end of the data, or for ASCII, which writes exactly its own bytes.
  const std::string_view utf8 = sStr;
  const std::size_t room = static_cast<std::size_t>(win_.limit - win_.base);  // 0 unless armed
  if (FixedLength < 1 && utf8.size() < room && win_.Pos() + 4 + utf8.size() <= room &&
      (win_.cur >= win_.end || text::IsAscii(utf8))) {
    unsigned char* const p = win_.cur;
    const std::size_t n = text::ToAnsi(utf8, reinterpret_cast<char*>(p + 4));
    coding::EncodeFixed32(p, static_cast<uint32_t>(n));
    win_.cur = p + 4 + n;
    return;
  }
  auto write = [&](const void* p, std::size_t n) {
    if (file_->Write(p, n)) return true;
    const std::string why = file_->IsOpen() ? SystemText(EIO) : kNotOpenText;
    PostError(errnum::kStreamWrite, kWriteStrSource, "Write Error: " + why);
    return false;
  };
  if (FixedLength >= 1) {
    std::string bytes = text::ToAnsi(text::Left(sStr, static_cast<std::size_t>(FixedLength)));
    bytes.resize(static_cast<std::size_t>(FixedLength), ' ');
    write(bytes.data(), bytes.size());
    return;
  }
  const std::string bytes = text::ToAnsi(sStr);
  unsigned char b[4];
  coding::EncodeFixed32(b, static_cast<uint32_t>(bytes.size()));
  if (!write(b, 4)) return;
  if (!bytes.empty()) write(bytes.data(), bytes.size());
}

void CStream::WriteVar(const Variant& vVar) {
  constexpr const char* kSource = "Stream:WriteVar";
  const VarType type = vVar.Type();
  if (type == VarType::Object) {
    PostError(errnum::kStreamWrite, kSource, "Write Error: ");
    return;
  }
  // Tag and value go out in one write so that a failure leaves no lone tag.
  unsigned char b[10];
  coding::EncodeFixed16(b, static_cast<uint16_t>(type));
  std::size_t n = 2;
  switch (type) {
    case VarType::Boolean:
      coding::EncodeFixed16(b + 2, vVar.ToBool() ? 0xFFFF : 0);
      n += 2;
      break;
    case VarType::Byte:
      b[2] = vVar.ToByte();
      n += 1;
      break;
    case VarType::Integer:
      coding::EncodeFixed16(b + 2, static_cast<uint16_t>(vVar.ToInteger()));
      n += 2;
      break;
    case VarType::Long:
      coding::EncodeFixed32(b + 2, static_cast<uint32_t>(vVar.ToLong()));
      n += 4;
      break;
    case VarType::Single:
      coding::EncodeFixed32(b + 2, coding::FloatBits(vVar.ToSingle()));
      n += 4;
      break;
    case VarType::Double:
    case VarType::Date:
      coding::EncodeFixed64(b + 2, coding::DoubleBits(vVar.ToDouble()));
      n += 8;
      break;
    case VarType::String: {
      std::string bytes = text::ToAnsi(vVar.ToString());
      if (bytes.size() > kMaxVarChars) bytes.resize(kMaxVarChars);
      coding::EncodeFixed16(b + 2, static_cast<uint16_t>(bytes.size()));
      bytes.insert(0, reinterpret_cast<const char*>(b), 4);
      WriteRaw(bytes.data(), bytes.size(), kSource);
      return;
    }
    default:  // Empty and Null: the tag alone
      break;
  }
  WriteRaw(b, n, kSource);
}

}  // namespace ringbook
