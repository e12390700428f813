#include <sys/stat.h>
#include <cerrno>

#include "core/BufferedFile_impl.h"
#include "core/Path.h"

namespace ringbook {
namespace {

bool SeekTo(std::FILE* f, uint64_t offset) {
#ifdef _WIN32
  return _fseeki64(f, static_cast<__int64>(offset), SEEK_SET) == 0;
#else
  return fseeko(f, static_cast<off_t>(offset), SEEK_SET) == 0;
#endif
}

// What the file system says of an open file: whether it is a directory
// and its length.
bool Inspect(std::FILE* f, bool& is_directory, uint64_t& size) {
#ifdef _WIN32
  struct _stat64 st;
  if (_fstat64(_fileno(f), &st) != 0) return false;
  is_directory = (st.st_mode & _S_IFDIR) != 0;
#else
  struct stat st;
  if (fstat(fileno(f), &st) != 0) return false;
  is_directory = S_ISDIR(st.st_mode);
#endif
  size = st.st_size > 0 ? static_cast<uint64_t>(st.st_size) : 0;
  return true;
}

}  // namespace

bool BufferedFile::Open(const std::string& path, Mode mode, int& error) {
  Close();
  error = 0;
  errno = 0;
  std::FILE* f = nullptr;
  if (mode == Mode::kReadOnly) {
    f = OpenFileUtf8(path, "rb");
  } else {
    f = OpenFileUtf8(path, "r+b");
    if (f == nullptr && errno == ENOENT) f = OpenFileUtf8(path, "w+b");
  }
  if (f == nullptr) {
    error = errno != 0 ? errno : EIO;
    return false;
  }
  // Some C libraries open a directory for reading; it is not a file.
  bool is_directory = false;
  uint64_t size = 0;
  if (!Inspect(f, is_directory, size) || is_directory) {
    std::fclose(f);
    error = is_directory ? EISDIR : EIO;
    return false;
  }
  std::setvbuf(f, nullptr, _IONBF, 0);  // the window is the only buffer
  file_ = f;
  file_pos_ = 0;
  last_was_read_ = false;
  writable_ = mode == Mode::kReadWrite;
  size_ = size;
  w_.Disarm();
  w_.SetLen(0);
  w_.dirty_lo = SIZE_MAX;
  window_start_ = 0;
  return LoadWindow(0);
}

bool BufferedFile::Close() {
  if (file_ == nullptr) return true;
  const bool flushed = Flush();
  const bool closed = std::fclose(file_) == 0;
  file_ = nullptr;
  writable_ = false;
  // The position survives the close; the window does not.
  size_ = Size();
  Detach(Position());
  w_.SetLen(0);
  w_.Disarm();
  return flushed && closed;
}

bool BufferedFile::Flush() {
  w_.Settle();
  w_.Disarm();  // the window is clean again: the next write re-arms
  if (file_ == nullptr || w_.dirty_lo >= w_.Len()) {
    w_.dirty_lo = SIZE_MAX;
    return true;
  }
  // Bytes in this range that were not written still hold what was loaded,
  // so writing the whole range back is harmless.
  const std::size_t n = w_.Len() - w_.dirty_lo;
  const uint64_t at = window_start_ + w_.dirty_lo;
  const bool ok = MoveTo(at, /*for_write=*/true) &&
                  std::fwrite(w_.base + w_.dirty_lo, 1, n, file_) == n && std::fflush(file_) == 0;
  file_pos_ = ok ? at + n : kUnknownPos;
  last_was_read_ = false;
  w_.dirty_lo = SIZE_MAX;
  return ok;
}

bool BufferedFile::MoveTo(uint64_t at, bool for_write) {
  // A read must not be followed by a write without a positioning call
  // between them, wherever the position already is.
  if (at == file_pos_ && !(for_write && last_was_read_)) return true;
  if (SeekTo(file_, at)) {
    file_pos_ = at;
    return true;
  }
  file_pos_ = kUnknownPos;
  return false;
}

bool BufferedFile::LoadWindow(uint64_t start) {
  if (!Flush()) return false;
  size_ = Size();
  window_start_ = start;
  w_.SetLen(0);
  w_.SetPos(0);
  if (start >= size_) return true;
  if (!MoveTo(start, /*for_write=*/false)) return false;
  const uint64_t left = size_ - start;
  const std::size_t want = left < kWindow ? static_cast<std::size_t>(left) : kWindow;
  w_.SetLen(std::fread(w_.base, 1, want, file_));
  file_pos_ = w_.Len() == want ? start + want : kUnknownPos;
  last_was_read_ = true;
  return w_.Len() == want;
}

std::size_t BufferedFile::ReadSlow(void* out, std::size_t n) {
  w_.Settle();
  if (file_ == nullptr) return 0;
  auto* dst = static_cast<unsigned char*>(out);
  std::size_t done = 0;
  while (done < n) {
    const std::size_t avail = w_.Pos() <= w_.Len() ? w_.Len() - w_.Pos() : 0;
    if (avail == 0) {
      const uint64_t at = Position();
      if (at >= Size()) break;
      // On failure the position stays at `at` (or where it was, when the
      // window could not be written back).
      if (!LoadWindow(at) || w_.Len() == 0) break;
      continue;
    }
    const std::size_t take = avail < n - done ? avail : n - done;
    std::memcpy(dst + done, w_.cur, take);
    w_.cur += take;
    done += take;
  }
  return done;
}

bool BufferedFile::WriteSlow(const void* in, std::size_t n) {
  w_.Settle();
  if (file_ == nullptr || !writable_) return false;
  const auto* src = static_cast<const unsigned char*>(in);
  while (n > 0) {
    if (w_.Pos() > w_.Len() || w_.Pos() >= kWindow) {
      const uint64_t at = Position();
      // A position past the end of the file: the gap reads as zeros, as it
      // does when the runtime extends a file. Written out rather than left
      // to the system, which need not fill a hole.
      const uint64_t end = Size();
      if (at > end) {
        static const unsigned char kZeros[4096] = {};
        Detach(end);
        while (Position() < at) {
          const uint64_t gap = at - Position();
          if (!WriteSlow(kZeros,
                         gap < sizeof kZeros ? static_cast<std::size_t>(gap) : sizeof kZeros)) {
            return false;
          }
        }
      }
      if (!LoadWindow(at)) {
        Detach(at);
        return false;
      }
    }
    const std::size_t room = kWindow - w_.Pos();
    const std::size_t take = room < n ? room : n;
    unsigned char* p = nullptr;
    Reserve(take, p);  // room is certain here
    std::memcpy(p, src, take);
    src += take;
    n -= take;
  }
  return true;
}

}  // namespace ringbook
