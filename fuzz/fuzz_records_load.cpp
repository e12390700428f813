// Loads arbitrary bytes as a fight-card file, a tournament file and an
// options record. A damaged or hostile file must never crash, hang, read out
// of bounds or allocate more than its counts allow (a tournament has at most
// four levels of at most eight bouts). Whatever a load produced must also
// rate and describe itself without harm (overflow errors are allowed), and
// must save to bytes that load and save again unchanged.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "cards/CFightCard.h"
#include "core/CStream.h"
#include "core/DefaultSettings.h"
#include "core/Error.h"
#include "core/HostServices.h"
#include "options/COptions.h"
#include "schedule/CTournament.h"

namespace {

namespace fs = std::filesystem;

volatile uint64_t g_sink = 0;

// One working folder per process: the input file, the re-saved files, and
// the options files (there is no game database in it, so new options take
// their defaults with empty officials).
const fs::path& WorkDir() {
  // Never destroyed, so that the clean-up at exit can still use it.
  static const fs::path* dir = [] {
    const char* tmp = std::getenv("TMPDIR");
    fs::path base = tmp != nullptr && *tmp != '\0' ? tmp : "/tmp";
    auto* d = new fs::path(base / ("ringbook-fuzz-records-" + std::to_string(::getpid())));
    fs::create_directories(*d);
    ringbook::SetSettings(
        std::make_shared<ringbook::DefaultSettings>((*d / "none.db").string(), d->string()));
    std::atexit([] {
      std::error_code ec;
      fs::remove_all(*dir, ec);
    });
    return d;
  }();
  return *dir;
}

std::string PathOf(const char* name) {
  return (WorkDir() / name).string();
}

bool WriteBytes(const std::string& path, const uint8_t* data, size_t size) {
  std::FILE* f = std::fopen(path.c_str(), "wb");
  if (f == nullptr) return false;
  const bool ok = size == 0 || std::fwrite(data, 1, size, f) == size;
  return std::fclose(f) == 0 && ok;
}

std::vector<char> ReadBytes(const std::string& path) {
  std::vector<char> bytes;
  std::FILE* f = std::fopen(path.c_str(), "rb");
  if (f == nullptr) return bytes;
  char chunk[8192];
  for (size_t n; (n = std::fread(chunk, 1, sizeof chunk, f)) > 0;) {
    bytes.insert(bytes.end(), chunk, chunk + n);
  }
  std::fclose(f);
  return bytes;
}

// Writes `record` to a fresh file in place (no commit through a temporary
// file, which would cost a flush to disk per input) and returns the bytes.
std::vector<char> Saved(ringbook::StreamRecord& record, const char* name) {
  const std::string path = PathOf(name);
  std::remove(path.c_str());
  ringbook::CStream stream;
  stream.SetFilename(path);
  stream.OpenStream(false);
  record.WriteToStream(stream);
  stream.CloseStream();
  return ReadBytes(path);
}

void Load(ringbook::StreamRecord& record, const std::string& path) {
  ringbook::CStream stream;
  stream.SetFilename(path);
  stream.OpenStream(false);
  record.ReadFromStream(stream);
  stream.CloseStream();
}

// Loading what a load saved must give the same bytes again (read back into
// the same object, which a load fills in place).
void CheckResaveIsStable(ringbook::StreamRecord& loaded, const char* name) {
  const std::vector<char> first = Saved(loaded, name);
  Load(loaded, PathOf(name));
  if (Saved(loaded, name) != first) __builtin_trap();
}

uint64_t Use(ringbook::CFightCard& card) {
  uint64_t sink = card.Name().size();
  try {
    sink += static_cast<uint16_t>(card.Rating());
  } catch (const ringbook::Error&) {
  }
  for (int16_t i = 1; i <= ringbook::CFightCard::kBouts; ++i) {
    const auto bout = card.Bout(i);
    sink += bout->Description(i % 3, false, true).size();
    try {
      sink += bout->OddsForFight().size();
      sink += bout->Description(2, true).size();
      sink += static_cast<uint16_t>(card.BoutRating(i));
      sink += static_cast<uint64_t>(bout->OddsModifier() > 1);
    } catch (const ringbook::Error&) {
    }
  }
  return sink;
}

uint64_t Use(ringbook::CTournament& tournament) {
  uint64_t sink = tournament.Name().size();
  if (tournament.Levels() > 4) __builtin_trap();
  for (int16_t l = 1; l <= tournament.Levels(); ++l) {
    const auto level = tournament.Level(l);
    if (level->BoutCount() > 8 || level->BoutCount() != level->Brackets() / 2) __builtin_trap();
    for (int16_t i = 1; i <= level->BoutCount(); ++i) {
      sink += level->Bout(i)->FighterName(1, 1).size() + level->DisplayFight(i);
    }
  }
  return sink;
}

}  // namespace

// New objects are costly to make (every bout's options read the style-0
// options file), so one set is made per process and each input starts from
// a copy of new objects, made through Clone, which copies every field.
template <class T>
struct Fresh {
  T pristine;
  T object;
  T& Reset() {
    pristine.Clone(object);
    return object;
  }
};

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string input = PathOf("input.bin");
  if (!WriteBytes(input, data, size)) return 0;
  static auto* cards = new Fresh<ringbook::CFightCard>;
  static auto* tournaments = new Fresh<ringbook::CTournament>;
  static auto* options = new Fresh<ringbook::COptions>;
  uint64_t sink = 0;

  ringbook::CFightCard& card = cards->Reset();
  card.LoadFromFile(input);
  sink += Use(card);
  CheckResaveIsStable(card, "card.bin");

  ringbook::CTournament& tournament = tournaments->Reset();
  tournament.LoadFromFile(input);
  sink += Use(tournament);
  CheckResaveIsStable(tournament, "tournament.bin");

  ringbook::COptions& record = options->Reset();
  record.LoadFromFile(input);
  sink += static_cast<uint64_t>(record.Style()) + static_cast<uint16_t>(record.Rounds());
  CheckResaveIsStable(record, "options.bin");

  ringbook::ClearLastError();
  g_sink = sink;
  return 0;
}
