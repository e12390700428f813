#include "store/SeedWorld.h"

#include <charconv>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>
#include <vector>

#include "core/DefaultSettings.h"
#include "core/Error.h"
#include "core/HostServices.h"
#include "core/Path.h"
#include "store/Database.h"
#include "store/DefaultData.h"
#include "store/GameDatabase.h"
#include "store/NAnnouncers.h"
#include "store/NCornermen.h"
#include "store/NGroups.h"
#include "store/NJudges.h"
#include "store/NLocations.h"
#include "store/NReferees.h"
#include "store/NTitles.h"
#include "store/Recordset.h"
#include "store/Transaction.h"

namespace ringbook {
namespace {

// The tables seeding fills; any row in one of them refuses the seeding.
constexpr const char* kSeededTables[] = {
    "Locations", "Announcers", "Judges", "Referees", "Cornermen", "Groups", "Titles",
};

// Settings that name the database being seeded; the options files stay
// where the host's own settings keep them.
class SeedingSettings : public ISettings {
 public:
  SeedingSettings(std::string path, std::shared_ptr<ISettings> host)
      : path_(std::move(path)),
        host_(host ? std::move(host) : std::make_shared<DefaultSettings>()) {}

  std::string DatabasePath() override { return path_; }
  std::string OptionsFolder(int16_t style) override { return host_->OptionsFolder(style); }
  std::string OptionsFileName(int16_t style) override { return host_->OptionsFileName(style); }

 private:
  std::string path_;
  std::shared_ptr<ISettings> host_;
};

// Points the thread's settings at the database being seeded for the life of
// the object, and puts the caller's own object back however the scope ends.
class SettingsScope {
 public:
  explicit SettingsScope(const std::string& path) : saved_(CurrentSettings()) {
    SetSettings(std::make_shared<SeedingSettings>(path, saved_));
  }
  ~SettingsScope() { SetSettings(std::move(saved_)); }
  SettingsScope(const SettingsScope&) = delete;
  SettingsScope& operator=(const SettingsScope&) = delete;

 private:
  std::shared_ptr<ISettings> saved_;
};

Error DamagedData(const std::string& description) {
  return Error(dberr::kConversion, std::string(kComponentName),
               "The default data is damaged: " + description + ".");
}

// One row of a block, read with the ranges the data files are checked
// against when the library is built. The check is repeated here so that a
// damaged table can never put a value into the world that the game does not
// expect.
class RowReader {
 public:
  RowReader(const char* block, int row, const DefaultDataRow& fields, std::size_t count)
      : block_(block), row_(row), fields_(fields) {
    if (fields_.size() < count) {
      throw DamagedData(std::string(block_) + " " + std::to_string(row_) + " has " +
                        std::to_string(fields_.size()) + " fields, not " + std::to_string(count));
    }
  }

  const std::string& Text(int field) const { return fields_[static_cast<std::size_t>(field - 1)]; }

  int16_t Number(int field, int low, int high) const {
    const std::string& text = Text(field);
    int value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, ec] = std::from_chars(text.data(), end, value);
    if (ec != std::errc() || stop != end || text.empty() || value < low || value > high) {
      throw DamagedData(std::string(block_) + " " + std::to_string(row_) + ", field " +
                        std::to_string(field) + " '" + text + "' is not a whole number from " +
                        std::to_string(low) + " to " + std::to_string(high));
    }
    return static_cast<int16_t>(value);
  }

 private:
  const char* block_;
  int row_;
  const DefaultDataRow& fields_;
};

// Counts rows as they are written and tells the caller.
class Progress {
 public:
  Progress(const SeedProgress& report, int32_t total) : report_(report), total_(total) {
    if (report_) report_(0, total_);
  }
  void Step() {
    ++done_;
    if (report_) report_(done_, total_);
  }

 private:
  const SeedProgress& report_;
  int32_t total_;
  int32_t done_ = 0;
};

void RefuseUnlessEmpty(const std::string& path) {
  std::shared_ptr<Database> database = Database::Open(path);
  for (const char* table : kSeededTables) {
    std::shared_ptr<Recordset> rows = database->OpenRecordset(table, RecordsetType::Table);
    const bool holds_rows = rows->RecordCount() > 0;
    rows->Close();
    if (holds_rows) {
      database->Close();
      throw Error(
          dberr::kDatabaseExists, std::string(kComponentName),
          "The game database '" + path + "' already holds rows; seeding would duplicate them.");
    }
  }
  database->Close();
}

void SeedLocations(const std::vector<DefaultDataRow>& rows, Progress& progress) {
  NLocations locations;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const RowReader row("location", static_cast<int>(i + 1), rows[i], 6);
    auto location = std::make_shared<CLocation>();
    location->SetArena(row.Text(1));
    location->SetCity(row.Text(2));
    location->SetCountry(row.Text(3));
    location->SetEra(row.Number(4, 1, 5));
    const int32_t site_rating = row.Number(5, 10, 70);
    location->SetSiteRating(site_rating);
    // The site rating to the nearest ten, halves up, as a level of 1 to 7.
    location->SetPriceIndex((site_rating + 5) / 10);
    row.Number(6, 0, 0);  // the key of a row not yet stored
    locations.AddRecord(location, false);
    progress.Step();
  }
}

void SeedAnnouncers(const std::vector<DefaultDataRow>& rows, Progress& progress) {
  NAnnouncers announcers;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const RowReader row("announcer", static_cast<int>(i + 1), rows[i], 3);
    auto announcer = std::make_shared<CAnnouncer>();
    announcer->SetFirstName(row.Text(1));
    announcer->SetLastName(row.Text(2));
    announcer->SetEra(row.Number(3, 0, 1));
    announcers.AddRecord(announcer, false);
    progress.Step();
  }
}

void SeedJudges(const std::vector<DefaultDataRow>& rows, Progress& progress) {
  NJudges judges;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const RowReader row("judge", static_cast<int>(i + 1), rows[i], 3);
    auto judge = std::make_shared<CJudge>();
    judge->SetFirstName(row.Text(1));
    judge->SetLastName(row.Text(2));
    judge->SetBias(row.Number(3, 0, 2));
    judge->SetEra(0);
    judges.AddRecord(judge, false);
    progress.Step();
  }
}

void SeedReferees(const std::vector<DefaultDataRow>& rows, Progress& progress) {
  NReferees referees;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const RowReader row("referee", static_cast<int>(i + 1), rows[i], 5);
    auto referee = std::make_shared<CReferee>();
    referee->SetFirstName(row.Text(1));
    referee->SetLastName(row.Text(2));
    referee->SetActiveRetired(row.Number(3, 0, 1));
    const int16_t fouls = row.Number(4, 0, 2);
    const int16_t stoppage = row.Number(5, 0, 2);
    // Judgement is good only when both ratings are, poor when both are poor
    // or one is poor and the other average.
    const auto judgement = static_cast<int16_t>((fouls + stoppage) / 2);
    referee->SetFouls(fouls);
    referee->SetStoppage(stoppage);
    referee->SetJudgement(judgement);
    referee->SetRating(static_cast<int16_t>(fouls + stoppage + judgement));
    referee->SetEra(0);
    referees.AddRecord(referee, false);
    progress.Step();
  }
}

void SeedCornermen(const std::vector<DefaultDataRow>& rows, Progress& progress) {
  constexpr int16_t kTrainer = 0;
  constexpr int16_t kCutMan = 1;
  NCornermen cornermen;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const RowReader row("cornerman", static_cast<int>(i + 1), rows[i], 9);
    auto cornerman = std::make_shared<CCornerman>();
    cornerman->SetFirstName(row.Text(1));
    cornerman->SetLastName(row.Text(2));
    const int16_t specialty = row.Number(3, 0, 2);
    cornerman->SetSpecialty(specialty);
    cornerman->SetDiscipline(row.Number(4, 0, 10));
    // One skill serves both trades: in full for what the cornerman does,
    // at half for the trade that is not his.
    const int16_t skill = row.Number(5, 2, 13);
    const auto half = static_cast<int16_t>(skill / 2);
    cornerman->SetStrategy(specialty == kCutMan ? half : skill);
    cornerman->SetCloseCuts(specialty == kTrainer ? half : skill);
    cornerman->SetReduceSwelling(specialty == kTrainer ? half : skill);
    cornerman->SetMotivate(row.Number(6, 0, 10));
    cornerman->SetTrainingOffense(row.Number(7, 0, 0));
    cornerman->SetTrainingDefense(row.Number(8, 0, 0));
    cornerman->SetTrainingAverage(row.Number(9, 0, 0));
    cornerman->SetNickName("");
    cornerman->SetEra(0);
    cornermen.AddRecord(cornerman, false);
    progress.Step();
  }
}

void SeedGroups(Progress& progress) {
  NGroups groups;
  auto group = std::make_shared<CGroup>();
  group->SetName(std::string(kDefaultGroupName));
  groups.AddRecord(group, false);
  progress.Step();
}

void SeedTitles(Progress& progress) {
  NTitles titles;
  for (std::string_view division : kStandardDivisions) {
    auto title = std::make_shared<CTitle>();
    title->SetName("World " + std::string(division) + " Title");
    titles.AddRecord(title, false);
    progress.Step();
  }
}

// Seeds an existing game database inside one transaction.
SeedReport Seed(const std::string& path, const SeedProgress& report) {
  const auto location_rows = DefaultDataRows(DefaultDataBlock::Locations);
  const auto announcer_rows = DefaultDataRows(DefaultDataBlock::Announcers);
  const auto judge_rows = DefaultDataRows(DefaultDataBlock::Judges);
  const auto referee_rows = DefaultDataRows(DefaultDataBlock::Referees);
  const auto cornerman_rows = DefaultDataRows(DefaultDataBlock::Cornermen);

  SeedReport seeded;
  seeded.Locations = static_cast<int32_t>(location_rows.size());
  seeded.Announcers = static_cast<int32_t>(announcer_rows.size());
  seeded.Judges = static_cast<int32_t>(judge_rows.size());
  seeded.Referees = static_cast<int32_t>(referee_rows.size());
  seeded.Cornermen = static_cast<int32_t>(cornerman_rows.size());
  seeded.Groups = 1;
  seeded.Titles = static_cast<int32_t>(kStandardDivisions.size());

  Transaction transaction(path);
  RefuseUnlessEmpty(path);
  {
    const SettingsScope settings(path);
    Progress progress(report, seeded.Total());
    SeedLocations(location_rows, progress);
    SeedAnnouncers(announcer_rows, progress);
    SeedJudges(judge_rows, progress);
    SeedReferees(referee_rows, progress);
    SeedCornermen(cornerman_rows, progress);
    SeedGroups(progress);
    SeedTitles(progress);
  }
  transaction.Commit();
  return seeded;
}

void RemoveDatabaseFiles(const std::string& path) {
  std::error_code ec;
  for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
    std::filesystem::remove(PathFromUtf8(path + suffix), ec);
  }
}

}  // namespace

SeedReport SeedGameWorld(const std::string& path, const SeedProgress& progress) {
  std::error_code ec;
  const bool create = !std::filesystem::exists(PathFromUtf8(path), ec) && !ec;
  if (create) CreateGameDatabase(path);
  try {
    SeedReport seeded = Seed(path, progress);
    seeded.Created = create;
    return seeded;
  } catch (...) {
    // Every connection to the file is closed by now: a world created here
    // and not seeded goes again.
    if (create) RemoveDatabaseFiles(path);
    throw;
  }
}

}  // namespace ringbook
