#include "core/CStream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <new>
#include <random>
#include <string>
#include <vector>

#include "core/DefaultUtility.h"
#include "core/Error.h"
#include "core/HostServices.h"
#include "core/StreamRecord.h"
#include "core/Text.h"
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

constexpr int32_t kOpenError = static_cast<int32_t>(0x80040201u);
constexpr int32_t kEofError = static_cast<int32_t>(0x80040202u);
// The size of the stream's buffer window, which the boundary tests straddle.
constexpr int64_t kWindow = static_cast<int64_t>(detail::StreamWindow::kSize);
constexpr int32_t kWriteError = static_cast<int32_t>(0x80040204u);

Bytes FileBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return Bytes(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void SetFileBytes(const std::string& path, const Bytes& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(bytes.data()),
            static_cast<std::streamsize>(bytes.size()));
}

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
    std::error_code ec;
    fs::remove(path, ec);
    CStream stream;
    stream.SetFilename(path);
    stream.OpenStream();
    write(stream);
    stream.CloseStream();
    EXPECT_EQ(LastError().Number, 0) << LastError().Source << " " << LastError().Description;
    return FileBytes(path);
  }

  test::TempDir dir_;
};

void ExpectPosted(int32_t number, const std::string& source, const std::string& description) {
  EXPECT_EQ(LastError().Number, number);
  EXPECT_EQ(LastError().Source, source);
  EXPECT_EQ(LastError().Description, description);
}

TEST_F(CStreamTest, TemporaryNameIsTargetPlusTmpRecomputedOnEverySet) {
  CStream stream;
  EXPECT_EQ(stream.Filename(), "");
  stream.SetFilename("cards/main event.crd");
  EXPECT_EQ(stream.Filename(), "cards/main event.crd");
  EXPECT_EQ(stream.TempFilename(), "cards/main event.crd.tmp");
  stream.SetFilename("other");
  EXPECT_EQ(stream.TempFilename(), "other.tmp");
}

TEST_F(CStreamTest, FixedWidthValuesAreLittleEndian) {
  EXPECT_EQ(Written([](CStream& s) {
              s.WriteBln(true);
              s.WriteBln(false);
              s.WriteByte(0xAB);
              s.WriteInt(-2);
              s.WriteInt(0x1234);
              s.WriteLng(0x12345678);
              s.WriteLng(-1);
              s.WriteSng(1.5f);
              s.WriteDate(36526.5);
              s.WriteDate(-1.25);
            }),
            (Bytes{0xFF, 0xFF, 0x00, 0x00, 0xAB, 0xFE, 0xFF, 0x34, 0x12, 0x78, 0x56, 0x34, 0x12,
                   0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00, 0xC0, 0x3F, 0x00, 0x00, 0x00, 0x00, 0xD0,
                   0xD5, 0xE1, 0x40, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xF4, 0xBF}));
}

TEST_F(CStreamTest, CountedStringsAreWindows1252OneBytePerCharacter) {
  EXPECT_EQ(Written([](CStream& s) { s.WriteStr("Zo\u00EB \u00C7elik"); }),
            (Bytes{9, 0, 0, 0, 'Z', 'o', 0xEB, ' ', 0xC7, 'e', 'l', 'i', 'k'}));
  // Characters without a Windows-1252 byte become '?' and still count as one.
  EXPECT_EQ(Written([](CStream& s) { s.WriteStr("\u0141\u00F3d\u017A \u65E5\U0001F600"); }),
            (Bytes{7, 0, 0, 0, '?', 0xF3, 'd', '?', ' ', '?', '?'}));
  EXPECT_EQ(Written([](CStream& s) { s.WriteStr("\u20AC"); }), (Bytes{1, 0, 0, 0, 0x80}));
  EXPECT_EQ(Written([](CStream& s) { s.WriteStr(""); }), (Bytes{0, 0, 0, 0}));
}

TEST_F(CStreamTest, FixedLengthStringsArePaddedOrCutAndReadBackUntrimmed) {
  const Bytes bytes = Written([](CStream& s) {
    s.WriteStr("abc", 5);
    s.WriteStr("abcdefghijk", 5);
    s.WriteStr("Zo\u00EB\u00EB\u00EB\u00EB", 4);  // cut by characters, not bytes
    s.WriteStr("x", 0);                           // below 1: counted form
  });
  EXPECT_EQ(bytes, (Bytes{'a', 'b', 'c', ' ', ' ', 'a', 'b', 'c', 'd', 'e', 'Z', 'o', 0xEB, 0xEB, 1,
                          0, 0, 0, 'x'}));

  auto stream = OpenOn("written.bin");
  EXPECT_EQ(stream->ReadStr(5), "abc  ");
  EXPECT_EQ(stream->ReadStr(5), "abcde");
  EXPECT_EQ(stream->ReadStr(4), "Zo\u00EB\u00EB");
  EXPECT_EQ(stream->ReadStr(-7), "x");
  EXPECT_EQ(LastError().Number, 0);
}

TEST_F(CStreamTest, ValuesReadBackAsWritten) {
  Written([](CStream& s) {
    s.WriteBln(true);
    s.WriteByte(200);
    s.WriteInt(-32768);
    s.WriteLng(-2147483647 - 1);
    s.WriteSng(-0.1f);
    s.WriteDate(45000.123456789);
    s.WriteStr("Zo\u00EB \u00C7elik \u20AC");
    s.WriteStr("");
  });
  auto s = OpenOn("written.bin");
  EXPECT_TRUE(s->ReadBln());
  EXPECT_EQ(s->ReadByte(), 200);
  EXPECT_EQ(s->ReadInt(), -32768);
  EXPECT_EQ(s->ReadLng(), -2147483647 - 1);
  EXPECT_EQ(s->ReadSng(), -0.1f);
  EXPECT_EQ(s->ReadDate(), 45000.123456789);
  EXPECT_EQ(s->ReadStr(), "Zo\u00EB \u00C7elik \u20AC");
  EXPECT_EQ(s->ReadStr(), "");
  EXPECT_EQ(LastError().Number, 0);
}

TEST_F(CStreamTest, AnyNonZeroBooleanReadsTrue) {
  SetFileBytes(dir_.File("b.bin"), {0x01, 0x00, 0x00, 0x80, 0x00, 0x00});
  auto s = OpenOn("b.bin");
  EXPECT_TRUE(s->ReadBln());
  EXPECT_TRUE(s->ReadBln());
  EXPECT_FALSE(s->ReadBln());
}

TEST_F(CStreamTest, VariantsCarryTheirAutomationTag) {
  EXPECT_EQ(Written([](CStream& s) {
              s.WriteVar(Variant(int16_t{-2}));
              s.WriteVar(Variant(int32_t{0x01020304}));
              s.WriteVar(Variant(1.5f));
              s.WriteVar(Variant(-1.25));
              s.WriteVar(Variant::FromDate(36526.5));
              s.WriteVar(Variant("Zo\u00EB"));
              s.WriteVar(Variant(true));
              s.WriteVar(Variant(false));
              s.WriteVar(Variant(uint8_t{0x7F}));
              s.WriteVar(Variant());
              s.WriteVar(Variant::Null());
            }),
            Concat({{2, 0, 0xFE, 0xFF},
                    {3, 0, 4, 3, 2, 1},
                    {4, 0, 0x00, 0x00, 0xC0, 0x3F},
                    {5, 0, 0, 0, 0, 0, 0, 0, 0xF4, 0xBF},
                    {7, 0, 0, 0, 0, 0, 0xD0, 0xD5, 0xE1, 0x40},
                    {8, 0, 3, 0, 'Z', 'o', 0xEB},
                    {11, 0, 0xFF, 0xFF},
                    {11, 0, 0, 0},
                    {17, 0, 0x7F},
                    {0, 0},
                    {1, 0}}));
}

TEST_F(CStreamTest, VariantsReadBackWithTheirType) {
  const std::vector<Variant> values = {
      Variant(int16_t{-2}), Variant(int32_t{123456}), Variant(0.25f),
      Variant(1e300),       Variant::FromDate(-1.25), Variant("\u00C7elik"),
      Variant(true),        Variant(uint8_t{255}),    Variant(),
      Variant::Null(),      Variant(std::string())};
  Written([&](CStream& s) {
    for (const Variant& v : values) s.WriteVar(v);
  });
  auto s = OpenOn("written.bin");
  for (const Variant& v : values) {
    const Variant back = s->ReadVar();
    EXPECT_EQ(back.Type(), v.Type());
    EXPECT_TRUE(back == v) << v.ToText();
  }
  EXPECT_EQ(LastError().Number, 0);
  s->ReadVar();
  ExpectPosted(kEofError, "Stream:ReadVar", "EOF");
}

TEST_F(CStreamTest, SeekToIsOneBasedAndWritesPastTheEndFillWithZeros) {
  auto s = OpenOn("seek.bin");
  EXPECT_EQ(s->SeekTo(), 1);
  s->WriteLng(0x44434241);
  EXPECT_EQ(s->SeekTo(), 5);
  s->WriteLng(0x48474645);
  s->SetSeekTo(3);
  s->WriteInt(0x5A5A);
  EXPECT_EQ(s->SeekTo(), 5);
  s->SetSeekTo(12);
  s->WriteByte('!');
  EXPECT_EQ(s->SeekTo(), 13);
  s->SetSeekTo(2);
  EXPECT_EQ(s->ReadByte(), 'B');
  s->CloseStream();
  EXPECT_EQ(LastError().Number, 0);
  EXPECT_EQ(FileBytes(dir_.File("seek.bin")),
            (Bytes{'A', 'B', 'Z', 'Z', 'E', 'F', 'G', 'H', 0, 0, 0, '!'}));
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
  r->SetSeekTo(static_cast<int32_t>(kWindow - 1));
  EXPECT_EQ(r->ReadLng(), -123456789);
  EXPECT_EQ(r->ReadStr(), "across");
  r->SetSeekTo(static_cast<int32_t>(3 * kWindow - 1));
  EXPECT_EQ(r->ReadLng(), -123456789);
  EXPECT_EQ(r->ReadStr(), "across");
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
// windows, checked against a plain byte vector.
TEST_F(CStreamTest, RandomAccessMatchesAByteModelAcrossBufferWindows) {
  std::mt19937 rng(20240611);
  Bytes model;
  auto s = OpenOn("model.bin");
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
  EXPECT_EQ(FileBytes(dir_.File("model.bin")), model);
}

TEST_F(CStreamTest, ShortReadPostsEofWithTheReadersSourceExactFitDoesNot) {
  SetFileBytes(dir_.File("six.bin"), {1, 2, 3, 4, 5, 6});
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
  SetFileBytes(dir_.File("neg.bin"), {0xFF, 0xFF, 0xFF, 0xFF, 'a', 'b'});
  auto s = OpenOn("neg.bin");
  EXPECT_EQ(s->ReadStr(), "");
  EXPECT_EQ(s->SeekTo(), 5);
  EXPECT_EQ(LastError().Number, 0);

  // A count far beyond the file returns what is there and allocates no more.
  SetFileBytes(dir_.File("huge.bin"), {0x00, 0x94, 0x35, 0x77, 'a', 'b', 'c', 'd', 'e', 'f'});
  auto h = OpenOn("huge.bin");
  g_largest_allocation = 0;
  EXPECT_EQ(h->ReadStr(), "abcdef");
  EXPECT_LT(g_largest_allocation.load(), std::size_t{1} << 20);
  ExpectPosted(kEofError, "Stream:ReadStr", "EOF");

  // Same for the 16-bit count of a text value.
  SetFileBytes(dir_.File("var.bin"), {8, 0, 0xFF, 0xFF, 'x', 'y'});
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

  SetFileBytes(dir_.File("old.bin"), {1, 2, 3, 4, 5, 6, 7, 8});
  auto o = OpenOn("old.bin");
  o->WriteInt(0);
  o->CloseStream();
  EXPECT_EQ(FileBytes(dir_.File("old.bin")), (Bytes{0, 0, 3, 4, 5, 6, 7, 8}));
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

    s.WriteLng(5);
    ExpectPosted(kWriteError, "Stream:WriteLng", "Write Error: ");
    s.WriteBln(true);
    ExpectPosted(kWriteError, "Stream:WriteBln", "Write Error: ");
    s.WriteByte(1);
    ExpectPosted(kWriteError, "Stream:WriteByte", "Write Error: ");
    s.WriteInt(1);
    ExpectPosted(kWriteError, "Stream:WriteInt", "Write Error: ");
    s.WriteSng(1);
    ExpectPosted(kWriteError, "Stream:WriteSng", "Write Error: ");
    s.WriteDate(1);
    ExpectPosted(kWriteError, "Stream:WriteDate", "Write Error: ");
    s.WriteVar(Variant(int32_t{1}));
    ExpectPosted(kWriteError, "Stream:WriteVar", "Write Error: ");
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

TEST_F(CStreamTest, ReadFileOnAMissingFileDoesNothing) {
  PostError(1, "earlier", "earlier");
  Sample obj;
  CStream s;
  s.SetFilename(dir_.File("missing.bin"));
  s.ReadFile(obj, 3);
  EXPECT_TRUE(obj.read_positions.empty());
  EXPECT_EQ(LastError().Number, 0);
  EXPECT_FALSE(fs::exists(dir_.File("missing.bin")));
}

TEST_F(CStreamTest, ReadFileOnAFolderPostsWithoutSystemText) {
  Sample obj;
  CStream s;
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
  EXPECT_EQ(FileBytes(dir_.File("obj.bin")),
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
  SetFileBytes(dir_.File("t.bin"), {9, 0, 0, 0, 0, 0, 0, 0, 0, 0});
  SetFileBytes(dir_.File("t.bin.tmp"), {1, 0, 0, 0, 0, 0, 0, 0, 0, 0});
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
  SetFileBytes(target, old_bytes);

  CStream s;
  s.SetFilename(target);
  s.OpenStream(true);
  for (int i = 0; i < 50000; ++i) s.WriteLng(i);  // several buffer windows
  s.WriteStr("end");
  EXPECT_EQ(FileBytes(target), old_bytes);
  EXPECT_TRUE(fs::exists(target + ".tmp"));
  s.CloseStream();
  EXPECT_EQ(LastError().Number, 0);
  EXPECT_FALSE(fs::exists(target + ".tmp"));
  const Bytes saved = FileBytes(target);
  ASSERT_EQ(saved.size(), 200007u);
  EXPECT_EQ(Bytes(saved.end() - 7, saved.end()), (Bytes{3, 0, 0, 0, 'e', 'n', 'd'}));

  // A later, shorter save leaves exactly its own bytes.
  s.OpenStream(true);
  s.WriteInt(7);
  s.CloseStream();
  EXPECT_EQ(FileBytes(target), (Bytes{7, 0}));
  EXPECT_FALSE(fs::exists(target + ".tmp"));
}

TEST_F(CStreamTest, InterruptedSaveLeavesTheTargetAndTheTemporaryFile) {
  const std::string target = dir_.File("card.crd");
  SetFileBytes(target, {1, 2, 3});
  {
    CStream s;
    s.SetFilename(target);
    s.OpenStream(true);
    s.WriteLng(0x0A0B0C0D);
    s.WriteLng(0x0A0B0C0D);
  }  // destroyed without CloseStream
  EXPECT_EQ(FileBytes(target), (Bytes{1, 2, 3}));
  EXPECT_EQ(FileBytes(target + ".tmp"), (Bytes{0xD, 0xC, 0xB, 0xA, 0xD, 0xC, 0xB, 0xA}));

  // The next save opens the leftover without truncating it: its bytes beyond
  // what is written stay at the end.
  CStream again;
  again.SetFilename(target);
  again.OpenStream(true);
  again.WriteInt(-1);
  again.CloseStream();
  EXPECT_EQ(FileBytes(target), (Bytes{0xFF, 0xFF, 0xB, 0xA, 0xD, 0xC, 0xB, 0xA}));
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
