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

bool IsDirectory(std::FILE* f) {
#ifdef _WIN32
  struct _stat64 st;
  return _fstat64(_fileno(f), &st) == 0 && (st.st_mode & _S_IFDIR) != 0;
#else
  struct stat st;
  return fstat(fileno(f), &st) == 0 && S_ISDIR(st.st_mode);
#endif
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
  if (IsDirectory(f)) {
    std::fclose(f);
    error = EISDIR;
    return false;
  }
  std::setvbuf(f, nullptr, _IONBF, 0);  // the window is the only buffer
  file_ = f;
  writable_ = mode == Mode::kReadWrite;
  uint64_t size = 0;
  if (SeekTo(f, 0) && std::fseek(f, 0, SEEK_END) == 0) {
#ifdef _WIN32
    size = static_cast<uint64_t>(_ftelli64(f));
#else
    size = static_cast<uint64_t>(ftello(f));
#endif
  }
  size_ = size;
  pos_ = 0;
  window_.resize(kWindow);
  window_start_ = 0;
  window_len_ = 0;
  dirty_lo_ = SIZE_MAX;
  return LoadWindow(0);
}

bool BufferedFile::Close() {
  if (file_ == nullptr) return true;
  const bool flushed = Flush();
  const bool closed = std::fclose(file_) == 0;
  file_ = nullptr;
  writable_ = false;
  size_ = Size();
  window_len_ = 0;
  return flushed && closed;
}

bool BufferedFile::Flush() {
  if (file_ == nullptr || dirty_lo_ >= window_len_) {
    dirty_lo_ = SIZE_MAX;
    return true;
  }
  const std::size_t n = window_len_ - dirty_lo_;
  const bool ok = SeekTo(file_, window_start_ + dirty_lo_) &&
                  std::fwrite(window_.data() + dirty_lo_, 1, n, file_) == n &&
                  std::fflush(file_) == 0;
  dirty_lo_ = SIZE_MAX;
  return ok;
}

bool BufferedFile::LoadWindow(uint64_t start) {
  if (!Flush()) return false;
  size_ = Size();
  window_start_ = start;
  window_len_ = 0;
  if (start >= size_) return true;
  if (!SeekTo(file_, start)) return false;
  const uint64_t left = size_ - start;
  const std::size_t want = left < kWindow ? static_cast<std::size_t>(left) : kWindow;
  window_len_ = std::fread(window_.data(), 1, want, file_);
  return window_len_ == want;
}

std::size_t BufferedFile::ReadSlow(void* out, std::size_t n) {
  if (file_ == nullptr || pos_ >= Size()) return 0;
  auto* dst = static_cast<unsigned char*>(out);
  std::size_t done = 0;
  while (done < n && pos_ < Size()) {
    if (!(pos_ >= window_start_ && pos_ < window_start_ + window_len_)) {
      if (!LoadWindow(pos_) || window_len_ == 0) break;
    }
    const std::size_t off = static_cast<std::size_t>(pos_ - window_start_);
    std::size_t take = window_len_ - off;
    if (take > n - done) take = n - done;
    std::memcpy(dst + done, window_.data() + off, take);
    done += take;
    pos_ += take;
  }
  return done;
}

bool BufferedFile::WriteSlow(const void* in, std::size_t n) {
  if (file_ == nullptr || !writable_) return false;
  const auto* src = static_cast<const unsigned char*>(in);
  while (n > 0) {
    const bool in_window = pos_ >= window_start_ && pos_ <= window_start_ + window_len_ &&
                           pos_ < window_start_ + kWindow;
    if (!in_window) {
      // A position past the end of the file: the gap reads as zeros, as it
      // does when the runtime extends a file.
      if (pos_ > Size()) {
        const uint64_t gap_at = Size();
        const uint64_t resume = pos_;
        static const unsigned char kZeros[4096] = {};
        pos_ = gap_at;
        while (pos_ < resume) {
          const uint64_t left = resume - pos_;
          if (!WriteSlow(kZeros,
                         left < sizeof kZeros ? static_cast<std::size_t>(left) : sizeof kZeros)) {
            return false;
          }
        }
      }
      if (!LoadWindow(pos_)) return false;
    }
    const std::size_t off = static_cast<std::size_t>(pos_ - window_start_);
    std::size_t take = kWindow - off;
    if (take > n) take = n;
    unsigned char* p = nullptr;
    Reserve(take, p);  // room is certain here
    std::memcpy(p, src, take);
    src += take;
    n -= take;
  }
  return true;
}

}  // namespace ringbook
