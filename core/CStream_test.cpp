#include "core/CStream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <new>
#include <random>
#include <string>
#include <vector>

#include "core/DefaultUtility.h"
#include "core/Error.h"
#include "core/HostServices.h"
#include "core/StreamRecord.h"
#include "core/Text.h"
#include "support/Bytes.h"
#include "support/TempDir.h"

// The largest single request made through operator new in this test program,
// so that a test can show that a damaged count does not turn into a huge
// allocation.
namespace {
std::atomic<std::size_t> g_largest_allocation{0};

void* CountedAllocation(std::size_t n) noexcept {
  std::size_t seen = g_largest_allocation.load(std::memory_order_relaxed);
  while (n > seen && !g_largest_allocation.compare_exchange_weak(seen, n)) {
  }
  return std::malloc(n == 0 ? 1 : n);
}
}  // namespace

void* operator new(std::size_t n) {
  if (void* p = CountedAllocation(n)) return p;
  throw std::bad_alloc();
}
void* operator new(std::size_t n, const std::nothrow_t&) noexcept {
  return CountedAllocation(n);
}
void operator delete(void* p) noexcept {
  std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
  std::free(p);
}
void operator delete(void* p, const std::nothrow_t&) noexcept {
  std::free(p);
}

namespace ringbook {
namespace {

using Bytes = std::vector<uint8_t>;
namespace fs = std::filesystem;
using test::ReadFileBytes;
using test::WriteFileBytes;

constexpr int32_t kOpenError = static_cast<int32_t>(0x80040201u);
constexpr int32_t kEofError = static_cast<int32_t>(0x80040202u);
constexpr int32_t kWriteError = static_cast<int32_t>(0x80040204u);
// The size of the stream's buffer window, which the boundary tests straddle.
constexpr int64_t kWindow = static_cast<int64_t>(detail::StreamWindow::kSize);

Bytes Concat(std::initializer_list<Bytes> parts) {
  Bytes all;
  for (const Bytes& p : parts) all.insert(all.end(), p.begin(), p.end());
  return all;
}

// Records the commits it is asked for; optionally performs them with the
// default utility.
class RecordingUtility : public DefaultUtility {
 public:
  explicit RecordingUtility(bool perform) : perform_(perform) {}
  void ReplaceFile(const std::string& target, const std::string& temporary) override {
    calls.emplace_back(target, temporary);
    if (perform_) DefaultUtility::ReplaceFile(target, temporary);
  }
  std::vector<std::pair<std::string, std::string>> calls;

 private:
  bool perform_;
};

// A persistable object with a fixed layout: a Lng, a counted text, a Bln.
class Sample : public IStream {
 public:
  void ReadObjectData(CStream& stream, int32_t position) override {
    read_positions.push_back(position);
    number = stream.ReadLng();
    name = stream.ReadStr();
    flag = stream.ReadBln();
  }
  void SaveObjectData(CStream& stream, int32_t position) override {
    save_positions.push_back(position);
    stream.WriteLng(number);
    stream.WriteStr(name);
    stream.WriteBln(flag);
  }
  int32_t number = 0;
  std::string name;
  bool flag = false;
  std::vector<int32_t> read_positions;
  std::vector<int32_t> save_positions;
};

class SampleRecord : public StreamRecord {
 public:
  void WriteToStream(CStream& stream) override {
    stream.WriteLng(1000001);
    stream.WriteStr(title);
    stream.WriteDate(when);
    stream.WriteStr(code, 4);
  }
  void ReadFromStream(CStream& stream) override {
    marker = stream.ReadLng();
    title = stream.ReadStr();
    when = stream.ReadDate();
    code = stream.ReadStr(4);
  }
  int32_t marker = 0;
  std::string title;
  double when = 0;
  std::string code;
};

class CStreamTest : public ::testing::Test {
 protected:
  void SetUp() override { ClearLastError(); }
  void TearDown() override {
    SetUtility(nullptr);
    ClearLastError();
  }

  // A stream open on `name` inside the test folder (not in overwrite mode).
  std::unique_ptr<CStream> OpenOn(const std::string& name) {
    auto stream = std::make_unique<CStream>();
    stream->SetFilename(dir_.File(name));
    stream->OpenStream();
    return stream;
  }

  // Writes with `write` into a fresh file and returns the file's bytes.
  Bytes Written(const std::function<void(CStream&)>& write) {
    const std::string path = dir_.File("written.bin");
    fs::remove(path);
    CStream stream;
    stream.SetFilename(path);
    stream.OpenStream();
    write(stream);
    stream.CloseStream();
    EXPECT_EQ(LastError().Number, 0) << LastError().Source << " " << LastError().Description;
    return ReadFileBytes(path);
  }

  test::TempDir dir_;
};

void ExpectPosted(int32_t number, const std::string& source, const std::string& description) {
  EXPECT_EQ(LastError().Number, number);
  EXPECT_EQ(LastError().Source, source);
  EXPECT_EQ(LastError().Description, description);
}

TEST_F(CStreamTest, FixedWidthValuesAreLittleEndianAndReadBack) {
  EXPECT_EQ(Written([](CStream& s) {
              s.WriteBln(true);
              s.WriteBln(false);
              s.WriteByte(0xAB);
              s.WriteInt(-32768);
              s.WriteInt(0x1234);
              s.WriteLng(0x12345678);
              s.WriteLng(-2147483647 - 1);
              s.WriteSng(-0.1f);
              s.WriteDate(45000.123456789);
              s.WriteDate(-1.25);
            }),
            (Bytes{0xFF, 0xFF, 0x00, 0x00, 0xAB, 0x00, 0x80, 0x34, 0x12, 0x78, 0x56, 0x34, 0x12,
                   0x00, 0x00, 0x00, 0x80, 0xCD, 0xCC, 0xCC, 0xBD, 0xE7, 0xA6, 0x5B, 0xF3, 0x03,
                   0xF9, 0xE5, 0x40, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xF4, 0xBF}));
  auto s = OpenOn("written.bin");
  EXPECT_TRUE(s->ReadBln());
  EXPECT_FALSE(s->ReadBln());
  EXPECT_EQ(s->ReadByte(), 0xAB);
  EXPECT_EQ(s->ReadInt(), -32768);
  EXPECT_EQ(s->ReadInt(), 0x1234);
  EXPECT_EQ(s->ReadLng(), 0x12345678);
  EXPECT_EQ(s->ReadLng(), -2147483647 - 1);
  EXPECT_EQ(s->ReadSng(), -0.1f);
  EXPECT_EQ(s->ReadDate(), 45000.123456789);
  EXPECT_EQ(s->ReadDate(), -1.25);
  EXPECT_EQ(LastError().Number, 0);

  // Any non-zero boolean reads True.
  WriteFileBytes(dir_.File("b.bin"), {0x01, 0x00, 0x00, 0x80, 0x00, 0x00});
  auto b = OpenOn("b.bin");
  EXPECT_TRUE(b->ReadBln());
  EXPECT_TRUE(b->ReadBln());
  EXPECT_FALSE(b->ReadBln());
}

// Counted texts take one Windows-1252 byte per character ('?' for those
// without one); fixed-length texts are padded or cut by characters and read
// back untrimmed, and a length below 1 means the counted form.
TEST_F(CStreamTest, TextsAreWindows1252CountedOrFixedLength) {
  EXPECT_EQ(Written([](CStream& s) {
              s.WriteStr("Zo\u00EB \u00C7elik");
              s.WriteStr("\u0141\u00F3d\u017A \u65E5\U0001F600");
              s.WriteStr("\u20AC");
              s.WriteStr("");
              s.WriteStr("abc", 5);
              s.WriteStr("abcdefghijk", 5);
              s.WriteStr("Zo\u00EB\u00EB\u00EB\u00EB", 4);
              s.WriteStr("x", 0);
            }),
            Concat({{9, 0, 0, 0, 'Z', 'o', 0xEB, ' ', 0xC7, 'e', 'l', 'i', 'k'},
                    {7, 0, 0, 0, '?', 0xF3, 'd', '?', ' ', '?', '?'},
                    {1, 0, 0, 0, 0x80},
                    {0, 0, 0, 0},
                    {'a', 'b', 'c', ' ', ' ', 'a', 'b', 'c', 'd', 'e', 'Z', 'o', 0xEB, 0xEB},
                    {1, 0, 0, 0, 'x'}}));
  auto s = OpenOn("written.bin");
  EXPECT_EQ(s->ReadStr(), "Zo\u00EB \u00C7elik");
  EXPECT_EQ(s->ReadStr(), "?\u00F3d? ??");
  EXPECT_EQ(s->ReadStr(), "\u20AC");
  EXPECT_EQ(s->ReadStr(), "");
  EXPECT_EQ(s->ReadStr(5), "abc  ");
  EXPECT_EQ(s->ReadStr(5), "abcde");
  EXPECT_EQ(s->ReadStr(4), "Zo\u00EB\u00EB");
  EXPECT_EQ(s->ReadStr(-7), "x");
  EXPECT_EQ(LastError().Number, 0);
}

// Each variant carries its automation tag and reads back with its type.
TEST_F(CStreamTest, VariantsCarryTheirTagAndReadBackWithTheirType) {
  const std::pair<Variant, Bytes> cases[] = {
      {Variant(int16_t{-2}), {2, 0, 0xFE, 0xFF}},
      {Variant(int32_t{0x01020304}), {3, 0, 4, 3, 2, 1}},
      {Variant(1.5f), {4, 0, 0x00, 0x00, 0xC0, 0x3F}},
      {Variant(0.1), {5, 0, 0x9A, 0x99, 0x99, 0x99, 0x99, 0x99, 0xB9, 0x3F}},
      {Variant::FromDate(-1.25), {7, 0, 0, 0, 0, 0, 0, 0, 0xF4, 0xBF}},
      {Variant("Zo\u00EB"), {8, 0, 3, 0, 'Z', 'o', 0xEB}},
      {Variant(std::string()), {8, 0, 0, 0}},
      {Variant(true), {11, 0, 0xFF, 0xFF}},
      {Variant(false), {11, 0, 0, 0}},
      {Variant(uint8_t{0xFF}), {17, 0, 0xFF}},
      {Variant(), {0, 0}},
      {Variant::Null(), {1, 0}},
  };
  Bytes want;
  for (const auto& [v, bytes] : cases) want.insert(want.end(), bytes.begin(), bytes.end());
  EXPECT_EQ(Written([&](CStream& s) {
              for (const auto& c : cases) s.WriteVar(c.first);
            }),
            want);
  auto s = OpenOn("written.bin");
  for (const auto& [v, bytes] : cases) {
    const Variant back = s->ReadVar();
    EXPECT_EQ(back.Type(), v.Type());
    EXPECT_TRUE(back == v) << v.ToText();
  }
  EXPECT_EQ(LastError().Number, 0);
  s->ReadVar();
  ExpectPosted(kEofError, "Stream:ReadVar", "EOF");
}

// Values that straddle a buffer window boundary take the slow path on both
// sides and must still come back whole.
TEST_F(CStreamTest, ValuesStraddlingBufferWindowsRoundTrip) {
  auto s = OpenOn("straddle.bin");
  for (int64_t window_end : {kWindow, 2 * kWindow, 3 * kWindow}) {
    for (int shift = 1; shift < 8; ++shift) {
      s->SetSeekTo(static_cast<int32_t>(window_end - shift + 1));
      s->WriteDate(1234.5 + shift);
      s->SetSeekTo(static_cast<int32_t>(window_end - shift + 1));
      EXPECT_EQ(s->ReadDate(), 1234.5 + shift) << window_end << " " << shift;
    }
    s->SetSeekTo(static_cast<int32_t>(window_end - 1));
    s->WriteLng(-123456789);
    s->WriteStr("across");
    s->SetSeekTo(static_cast<int32_t>(window_end - 1));
    EXPECT_EQ(s->ReadLng(), -123456789);
    EXPECT_EQ(s->ReadStr(), "across");
  }
  EXPECT_EQ(LastError().Number, 0);
  s->CloseStream();

  // Read back by a fresh stream, whose first window is loaded from the file.
  auto r = OpenOn("straddle.bin");
  for (int64_t window_end : {kWindow, 3 * kWindow}) {
    r->SetSeekTo(static_cast<int32_t>(window_end - 1));
    EXPECT_EQ(r->ReadLng(), -123456789);
    EXPECT_EQ(r->ReadStr(), "across");
  }
  EXPECT_EQ(LastError().Number, 0);
}

// Short texts are read as whole words with the bytes past them masked off:
// every length, an accented letter at every place, and what follows the text
// (more letters, or the end of a window) must make no difference.
TEST_F(CStreamTest, ShortTextsReadBackWhateverTheirLengthAndNeighbours) {
  std::vector<std::string> texts;
  for (std::size_t n = 1; n <= 17; ++n) {
    const std::string ascii = std::string("abcdefghijklmnopq").substr(0, n);
    texts.push_back(ascii);
    for (std::size_t at = 0; at < n; ++at) {
      texts.push_back(ascii.substr(0, at) + "\u00E9" + ascii.substr(at + 1));
    }
  }
  auto s = OpenOn("short.bin");
  for (const std::string& t : texts) s->WriteStr(t);
  const auto at_window_end =
      static_cast<int32_t>(kWindow - 4 - 5 + 1);  // "Ma\u00EFs!" ends the first window
  s->SetSeekTo(at_window_end);
  s->WriteStr("Ma\u00EFs!");
  s->WriteStr("\u00C9t\u00E9");
  s->CloseStream();

  auto r = OpenOn("short.bin");
  for (const std::string& t : texts) ASSERT_EQ(r->ReadStr(), t);
  r->SetSeekTo(at_window_end);
  EXPECT_EQ(r->ReadStr(), "Ma\u00EFs!");
  EXPECT_EQ(r->ReadStr(), "\u00C9t\u00E9");
  EXPECT_EQ(LastError().Number, 0);
}

// Random seeks, reads and writes of every width across several buffer
// windows, checked against a plain byte vector: positions are one-based and
// writes past the end fill the gap with zeros.
TEST_F(CStreamTest, RandomAccessMatchesAByteModelAcrossBufferWindows) {
  std::mt19937 rng(20240611);
  Bytes model;
  auto s = OpenOn("model.bin");
  ASSERT_EQ(s->SeekTo(), 1);
  auto put = [&](uint64_t pos, const uint8_t* p, std::size_t n) {
    if (model.size() < pos + n) model.resize(pos + n, 0);
    std::copy(p, p + n, model.begin() + static_cast<std::ptrdiff_t>(pos));
  };
  constexpr int kMaxPos = static_cast<int>(kWindow * 9 / 2);
  for (int step = 0; step < 20000; ++step) {
    const int op = static_cast<int>(rng() % 7);
    if (op == 0) {
      s->SetSeekTo(1 + static_cast<int32_t>(rng() % kMaxPos));
      continue;
    }
    const uint64_t pos = static_cast<uint64_t>(s->SeekTo() - 1);
    if (op == 1) {
      const uint32_t v = rng();
      s->WriteLng(static_cast<int32_t>(v));
      const uint8_t b[4] = {uint8_t(v), uint8_t(v >> 8), uint8_t(v >> 16), uint8_t(v >> 24)};
      put(pos, b, 4);
    } else if (op == 2) {
      // Mostly short texts, now and then one longer than a window; fixed
      // length, or counted with accented letters that take one byte fewer in
      // the file than in UTF-8 (so over existing bytes, which must survive).
      const std::size_t len = rng() % 16 == 0 ? rng() % (kWindow + 4500) : rng() % 20;
      if (step % 2 == 0) {
        std::string text(len, static_cast<char>('a' + step % 26));
        s->WriteStr(text, static_cast<int32_t>(text.size() + 1));
        text.push_back(' ');
        put(pos, reinterpret_cast<const uint8_t*>(text.data()), text.size());
      } else {
        std::string text, ansi;
        for (std::size_t i = 0; i < len; ++i) {
          const bool accented = rng() % 4 == 0;
          text += accented ? "\u00E9" : "x";
          ansi += accented ? '\xE9' : 'x';
        }
        s->WriteStr(text);
        const auto n = static_cast<uint32_t>(ansi.size());
        const uint8_t count[4] = {uint8_t(n), uint8_t(n >> 8), uint8_t(n >> 16), uint8_t(n >> 24)};
        put(pos, count, 4);
        put(pos + 4, reinterpret_cast<const uint8_t*>(ansi.data()), ansi.size());
      }
    } else if (op == 3) {
      const uint8_t b = static_cast<uint8_t>(rng());
      s->WriteByte(b);
      put(pos, &b, 1);
    } else if (op == 4) {
      // A read of any length, possibly across windows or past the end.
      const auto len =
          static_cast<int32_t>(1 + (rng() % 32 == 0 ? rng() % (kWindow + 4500) : rng() % 12));
      ClearLastError();
      const std::string got = s->ReadStr(len);
      const uint64_t have = pos < model.size() ? std::min<uint64_t>(len, model.size() - pos) : 0;
      EXPECT_EQ(LastError().Number, have == static_cast<uint64_t>(len) ? 0 : kEofError);
      const std::string want(
          model.begin() + static_cast<std::ptrdiff_t>(std::min<uint64_t>(pos, model.size())),
          model.begin() +
              static_cast<std::ptrdiff_t>(std::min<uint64_t>(pos, model.size()) + have));
      ASSERT_EQ(got, text::FromAnsi(want)) << "at " << pos << " step " << step;
      if (have < static_cast<uint64_t>(len)) s->SetSeekTo(static_cast<int32_t>(pos + 1));
    } else {
      ClearLastError();
      const int32_t got = s->ReadLng();
      const bool whole = pos + 4 <= model.size();
      EXPECT_EQ(LastError().Number, whole ? 0 : kEofError) << "at " << pos;
      if (whole) {
        const int32_t want =
            static_cast<int32_t>(model[pos] | (model[pos + 1] << 8) | (model[pos + 2] << 16) |
                                 (static_cast<uint32_t>(model[pos + 3]) << 24));
        ASSERT_EQ(got, want) << "at " << pos << " step " << step;
      } else {
        s->SetSeekTo(static_cast<int32_t>(pos + 1));
      }
    }
  }
  s->CloseStream();
  EXPECT_EQ(ReadFileBytes(dir_.File("model.bin")), model);
}

TEST_F(CStreamTest, ShortReadPostsEofWithTheReadersSourceExactFitDoesNot) {
  WriteFileBytes(dir_.File("six.bin"), {1, 2, 3, 4, 5, 6});
  auto s = OpenOn("six.bin");
  EXPECT_EQ(s->ReadLng(), 0x04030201);
  EXPECT_EQ(LastError().Number, 0);
  s->ReadLng();
  ExpectPosted(kEofError, "Stream:ReadLng", "EOF");

  ClearLastError();
  s->SetSeekTo(3);
  EXPECT_EQ(s->ReadLng(), 0x06050403);
  EXPECT_EQ(LastError().Number, 0);

  struct Reader {
    std::function<void(CStream&)> read;
    const char* source;
  };
  const Reader readers[] = {
      {[](CStream& c) { EXPECT_FALSE(c.ReadBln()); }, "Stream:ReadBln"},
      {[](CStream& c) { EXPECT_EQ(c.ReadByte(), 0); }, "Stream:ReadByte"},
      {[](CStream& c) { EXPECT_EQ(c.ReadInt(), 0); }, "Stream:ReadInt"},
      {[](CStream& c) { EXPECT_EQ(c.ReadLng(), 0); }, "Stream:ReadLng"},
      {[](CStream& c) { EXPECT_EQ(c.ReadSng(), 0.0f); }, "Stream:ReadSng"},
      {[](CStream& c) { EXPECT_EQ(c.ReadDate(), 0.0); }, "Stream:ReadDate"},
      {[](CStream& c) { EXPECT_EQ(c.ReadStr(), ""); }, "Stream:ReadStr"},
      {[](CStream& c) { EXPECT_EQ(c.ReadStr(3), ""); }, "Stream:ReadStr"},
      {[](CStream& c) { EXPECT_TRUE(c.ReadVar().IsEmpty()); }, "Stream:ReadVar"},
  };
  for (const Reader& r : readers) {
    ClearLastError();
    s->SetSeekTo(7);
    r.read(*s);
    ExpectPosted(kEofError, r.source, "EOF");
  }
}

TEST_F(CStreamTest, StringCountsThatCannotBeUsed) {
  // Negative count: nothing more is read, no error.
  WriteFileBytes(dir_.File("neg.bin"), {0xFF, 0xFF, 0xFF, 0xFF, 'a', 'b'});
  auto s = OpenOn("neg.bin");
  EXPECT_EQ(s->ReadStr(), "");
  EXPECT_EQ(s->SeekTo(), 5);
  EXPECT_EQ(LastError().Number, 0);

  // A count far beyond the file returns what is there and allocates no more.
  WriteFileBytes(dir_.File("huge.bin"), {0x00, 0x94, 0x35, 0x77, 'a', 'b', 'c', 'd', 'e', 'f'});
  auto h = OpenOn("huge.bin");
  g_largest_allocation = 0;
  EXPECT_EQ(h->ReadStr(), "abcdef");
  EXPECT_LT(g_largest_allocation.load(), std::size_t{1} << 20);
  ExpectPosted(kEofError, "Stream:ReadStr", "EOF");

  // Same for the 16-bit count of a text value.
  WriteFileBytes(dir_.File("var.bin"), {8, 0, 0xFF, 0xFF, 'x', 'y'});
  auto v = OpenOn("var.bin");
  EXPECT_EQ(v->ReadVar().ToText(), "xy");
  ExpectPosted(kEofError, "Stream:ReadVar", "EOF");
}

TEST_F(CStreamTest, OpenWithoutOverwriteCreatesAMissingFileAndKeepsAnExistingOne) {
  auto s = OpenOn("new.bin");
  EXPECT_TRUE(fs::exists(dir_.File("new.bin")));
  EXPECT_EQ(fs::file_size(dir_.File("new.bin")), 0u);
  EXPECT_EQ(s->ReadLng(), 0);
  ExpectPosted(kEofError, "Stream:ReadLng", "EOF");
  EXPECT_EQ(s->ReadStr(), "");
  s->CloseStream();

  WriteFileBytes(dir_.File("old.bin"), {1, 2, 3, 4, 5, 6, 7, 8});
  auto o = OpenOn("old.bin");
  o->WriteInt(0);
  o->CloseStream();
  EXPECT_EQ(ReadFileBytes(dir_.File("old.bin")), (Bytes{0, 0, 3, 4, 5, 6, 7, 8}));
  EXPECT_FALSE(fs::exists(dir_.File("old.bin.tmp")));
}

TEST_F(CStreamTest, FailedOpenPostsAndLaterCallsFailQuietly) {
  for (const std::string& path : {dir_.Path().string(), dir_.File("no such folder/x.bin")}) {
    SCOPED_TRACE(path);
    CStream s;
    s.SetFilename(path);
    s.OpenStream();
    EXPECT_EQ(LastError().Number, kOpenError);
    EXPECT_EQ(LastError().Source, "Stream:WriteFile");
    EXPECT_EQ(LastError().Description.rfind("Error opening file: ", 0), 0u);
    EXPECT_GT(LastError().Description.size(), std::string("Error opening file: ").size());

    const std::pair<std::function<void()>, const char*> writers[] = {
        {[&] { s.WriteLng(5); }, "Stream:WriteLng"},
        {[&] { s.WriteBln(true); }, "Stream:WriteBln"},
        {[&] { s.WriteByte(1); }, "Stream:WriteByte"},
        {[&] { s.WriteInt(1); }, "Stream:WriteInt"},
        {[&] { s.WriteSng(1); }, "Stream:WriteSng"},
        {[&] { s.WriteDate(1); }, "Stream:WriteDate"},
        {[&] { s.WriteVar(Variant(int32_t{1})); }, "Stream:WriteVar"},
    };
    for (const auto& [write, source] : writers) {
      write();
      ExpectPosted(kWriteError, source, "Write Error: ");
    }
    s.WriteStr("abc");
    EXPECT_EQ(LastError().Number, kWriteError);
    EXPECT_EQ(LastError().Source, "Stream:WriteStr");
    EXPECT_EQ(LastError().Description.rfind("Write Error: ", 0), 0u);
    EXPECT_GT(LastError().Description.size(), std::string("Write Error: ").size());

    EXPECT_EQ(s.ReadLng(), 0);
    EXPECT_EQ(s.ReadStr(), "");
    EXPECT_EQ(s.ReadStr(4), "");
    EXPECT_FALSE(s.ReadBln());
    s.CloseStream();
  }
  EXPECT_TRUE(fs::is_directory(dir_.Path()));
  EXPECT_FALSE(fs::exists(dir_.File("no such folder")));
}

// A missing file is no error (and is not created); a folder posts without
// the system's text.
TEST_F(CStreamTest, ReadFileOnAMissingFileOrAFolder) {
  PostError(1, "earlier", "earlier");
  Sample obj;
  CStream s;
  s.SetFilename(dir_.File("missing.bin"));
  s.ReadFile(obj, 3);
  EXPECT_EQ(LastError().Number, 0);
  EXPECT_FALSE(fs::exists(dir_.File("missing.bin")));
  s.SetFilename(dir_.Path().string());
  s.ReadFile(obj);
  EXPECT_TRUE(obj.read_positions.empty());
  ExpectPosted(kOpenError, "Stream:ReadFile", "Error opening file.");
}

TEST_F(CStreamTest, WriteFileAndReadFilePassPositionOnlyWhenPositive) {
  Sample out;
  out.number = -42;
  out.name = "Zo\u00EB";
  out.flag = true;
  CStream s;
  s.SetFilename(dir_.File("obj.bin"));
  s.WriteFile(out, 7);
  s.WriteFile(out, 0);
  s.WriteFile(out, -3);
  EXPECT_EQ(out.save_positions, (std::vector<int32_t>{7, 0, 0}));
  EXPECT_EQ(LastError().Number, 0);
  // Each write starts at position 1 of the same file.
  EXPECT_EQ(ReadFileBytes(dir_.File("obj.bin")),
            (Bytes{0xD6, 0xFF, 0xFF, 0xFF, 3, 0, 0, 0, 'Z', 'o', 0xEB, 0xFF, 0xFF}));

  Sample in;
  s.ReadFile(in, 1);
  s.ReadFile(in, -1);
  EXPECT_EQ(in.read_positions, (std::vector<int32_t>{1, 0}));
  EXPECT_EQ(in.number, -42);
  EXPECT_EQ(in.name, "Zo\u00EB");
  EXPECT_TRUE(in.flag);
  EXPECT_EQ(LastError().Number, 0);
}

TEST_F(CStreamTest, ReadFileReadsTheTargetWhateverTheOverwriteFlag) {
  WriteFileBytes(dir_.File("t.bin"), {9, 0, 0, 0, 0, 0, 0, 0, 0, 0});
  WriteFileBytes(dir_.File("t.bin.tmp"), {1, 0, 0, 0, 0, 0, 0, 0, 0, 0});
  auto utility = std::make_shared<RecordingUtility>(false);
  SetUtility(utility);
  CStream s;
  s.SetFilename(dir_.File("t.bin"));
  s.OpenStream(true);
  s.CloseStream();
  Sample in;
  s.ReadFile(in);
  EXPECT_EQ(in.number, 9);
  EXPECT_EQ(utility->calls.size(), 1u);  // ReadFile commits nothing
}

TEST_F(CStreamTest, OverwriteSaveTouchesTheTargetOnlyOnClose) {
  const std::string target = dir_.File("card.crd");
  const Bytes old_bytes(100000, 0x11);
  WriteFileBytes(target, old_bytes);

  CStream s;
  s.SetFilename(dir_.File("other"));
  s.SetFilename(target);
  EXPECT_EQ(s.TempFilename(), target + ".tmp");  // recomputed on every set
  s.OpenStream(true);
  for (int i = 0; i < 50000; ++i) s.WriteLng(i);  // several buffer windows
  s.WriteStr("end");
  EXPECT_EQ(ReadFileBytes(target), old_bytes);
  EXPECT_TRUE(fs::exists(target + ".tmp"));
  s.CloseStream();
  EXPECT_EQ(LastError().Number, 0);
  EXPECT_FALSE(fs::exists(target + ".tmp"));
  const Bytes saved = ReadFileBytes(target);
  ASSERT_EQ(saved.size(), 200007u);
  EXPECT_EQ(Bytes(saved.end() - 7, saved.end()), (Bytes{3, 0, 0, 0, 'e', 'n', 'd'}));

  // A later, shorter save leaves exactly its own bytes.
  s.OpenStream(true);
  s.WriteInt(7);
  s.CloseStream();
  EXPECT_EQ(ReadFileBytes(target), (Bytes{7, 0}));
  EXPECT_FALSE(fs::exists(target + ".tmp"));
}

TEST_F(CStreamTest, InterruptedSaveLeavesTheTargetAndTheTemporaryFile) {
  const std::string target = dir_.File("card.crd");
  WriteFileBytes(target, {1, 2, 3});
  {
    CStream s;
    s.SetFilename(target);
    s.OpenStream(true);
    s.WriteLng(0x0A0B0C0D);
    s.WriteLng(0x0A0B0C0D);
  }  // destroyed without CloseStream
  EXPECT_EQ(ReadFileBytes(target), (Bytes{1, 2, 3}));
  EXPECT_EQ(ReadFileBytes(target + ".tmp"), (Bytes{0xD, 0xC, 0xB, 0xA, 0xD, 0xC, 0xB, 0xA}));

  // The next save opens the leftover without truncating it: its bytes beyond
  // what is written stay at the end.
  CStream again;
  again.SetFilename(target);
  again.OpenStream(true);
  again.WriteInt(-1);
  again.CloseStream();
  EXPECT_EQ(ReadFileBytes(target), (Bytes{0xFF, 0xFF, 0xB, 0xA, 0xD, 0xC, 0xB, 0xA}));
}

TEST_F(CStreamTest, OverwriteCloseCommitsOnEveryCallEvenAfterAFailedOpen) {
  auto utility = std::make_shared<RecordingUtility>(false);
  SetUtility(utility);
  const std::string target = dir_.File("no such folder/card.crd");

  Sample obj;
  CStream s;
  s.SetFilename(target);
  s.WriteFile(obj, 1, true);
  EXPECT_TRUE(obj.save_positions.empty());
  ASSERT_EQ(utility->calls.size(), 1u);
  EXPECT_EQ(utility->calls[0].first, target);
  EXPECT_EQ(utility->calls[0].second, target + ".tmp");

  s.CloseStream();
  EXPECT_EQ(utility->calls.size(), 2u);

  // Without the overwrite flag nothing is committed.
  s.SetFilename(dir_.File("plain.bin"));
  s.WriteFile(obj);
  s.CloseStream();
  EXPECT_EQ(utility->calls.size(), 2u);
  EXPECT_EQ(obj.save_positions.size(), 1u);
}

TEST_F(CStreamTest, StreamRecordRoundTripsThroughAFile) {
  const std::string path = dir_.File("record.bin");
  SampleRecord out;
  out.title = "Main event \u2013 Zo\u00EB";
  out.when = 45123.75;
  out.code = "AB";
  out.SaveToFile(path);
  EXPECT_FALSE(fs::exists(path + ".tmp"));

  SampleRecord in;
  in.LoadFromFile(path);
  EXPECT_EQ(in.marker, 1000001);
  EXPECT_EQ(in.title, out.title);
  EXPECT_EQ(in.when, 45123.75);
  EXPECT_EQ(in.code, "AB  ");
  EXPECT_EQ(LastError().Number, 0);

  // Loading a missing file yields zeros and empty texts, never an exception.
  SampleRecord missing;
  missing.LoadFromFile(dir_.File("missing/record.bin"));
  EXPECT_EQ(missing.marker, 0);
  EXPECT_EQ(missing.title, "");
}

}  // namespace
}  // namespace ringbook
