// End-to-end tests of the `ringbook` tool: each case runs the built program
// as a user would, in a folder of its own, and checks what it prints, what
// it writes and how it exits.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "support/TempDir.h"

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;
using ringbook::test::TempDir;

struct Result {
  int code = -1;
  std::string out;
  std::string err;
};

std::string ReadAll(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

void WriteAll(const fs::path& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << bytes;
}

std::string Quote(const std::string& arg) {
  std::string out = "'";
  for (char c : arg) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return out + "'";
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

std::string SourceDir() {
  const char* dir = std::getenv("RINGBOOK_SOURCE_DIR");
  return dir ? dir : RINGBOOK_SOURCE_DIR_DEFAULT;
}

// A seeded world made once for the suite; each case works on its own copy.
class CliTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    // The tool must see only what a case gives it.
    ::unsetenv("RINGBOOK_DB");
    ::unsetenv("RINGBOOK_DATA_DIR");
    ::unsetenv("RINGBOOK_SEED");
    if (std::string(RINGBOOK_CLI_PATH).empty()) return;
    world_ = new TempDir();
    const Result r = Exec({"--db", world_->File("ringbook.db"), "init"}, world_->Path());
    ASSERT_EQ(r.code, 0) << r.err;
  }
  static void TearDownTestSuite() {
    delete world_;
    world_ = nullptr;
  }

  void SetUp() override {
    if (std::string(RINGBOOK_CLI_PATH).empty()) GTEST_SKIP() << "the tool is not built";
    ASSERT_NE(world_, nullptr);
    for (const auto& entry : fs::directory_iterator(world_->Path())) {
      fs::copy_file(entry.path(), dir_.Path() / entry.path().filename());
    }
  }

  // Runs the tool on this case's world, in this case's folder.
  Result Run(std::vector<std::string> args) {
    args.insert(args.begin(), {"--db", File("ringbook.db"), "--data-dir", dir_.Path().string()});
    return Exec(args, dir_.Path());
  }

  // Runs the tool with exactly `args`.
  static Result Exec(const std::vector<std::string>& args, const fs::path& where,
                     const std::string& env = "") {
    const fs::path out = where / "stdout.txt";
    const fs::path err = where / "stderr.txt";
    std::string command =
        "cd " + Quote(where.string()) + " && " + env + " " + Quote(RINGBOOK_CLI_PATH);
    for (const std::string& a : args) command += " " + Quote(a);
    command += " </dev/null >" + Quote(out.string()) + " 2>" + Quote(err.string());
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadAll(out), ReadAll(err)};
  }

  // Runs a command that must succeed and returns what it printed.
  std::string Ok(const std::vector<std::string>& args) {
    const Result r = Run(args);
    EXPECT_EQ(r.code, 0) << "ringbook " << Join(args) << "\n" << r.err;
    EXPECT_EQ(r.err, "") << "ringbook " << Join(args);
    return r.out;
  }

  Json OkJson(std::vector<std::string> args) {
    args.push_back("--json");
    const std::string out = Ok(args);
    try {
      return Json::parse(out);
    } catch (const Json::parse_error&) {
      ADD_FAILURE() << "ringbook " << Join(args) << " printed no JSON:\n" << out;
      return Json();
    }
  }

  // A failure is one line on standard error, nothing on standard output,
  // and the exit code of its kind (1 for a failed command, 2 for a bad call).
  void ExpectFailure(const std::vector<std::string>& args, int code, const std::string& says) {
    const Result r = Run(args);
    SCOPED_TRACE("ringbook " + Join(args));
    EXPECT_EQ(r.code, code) << r.err;
    EXPECT_EQ(r.out, "");
    ASSERT_FALSE(r.err.empty());
    EXPECT_EQ(r.err.rfind("ringbook: ", 0), 0u) << r.err;
    EXPECT_EQ(r.err.find('\n'), r.err.size() - 1) << "not one line: " << r.err;
    EXPECT_NE(r.err.find(says), std::string::npos) << r.err;
  }

  static std::string Join(const std::vector<std::string>& args) {
    std::string s;
    for (const auto& a : args) s += (s.empty() ? "" : " ") + a;
    return s;
  }

  std::string File(const std::string& name) const { return dir_.File(name); }

  void AddSampleFighters() {
    const std::string out =
        Ok({"fighter", "add", "--from-json", SourceDir() + "/data/sample-fighters.json"});
    ASSERT_EQ(Lines(out).size(), 8u) << out;
  }

  static TempDir* world_;
  TempDir dir_;
};

TempDir* CliTest::world_ = nullptr;

TEST_F(CliTest, InitSeedsANewWorldOnceAndRefusesToSeedItAgain) {
  TempDir fresh;
  const std::string db = fresh.File("sub/world.db");
  const Result made = Exec({"--db", db, "--json", "init"}, fresh.Path());
  ASSERT_EQ(made.code, 0) << made.err;
  const Json report = Json::parse(made.out);
  EXPECT_TRUE(report["created"].get<bool>());
  EXPECT_EQ(report["rows"]["locations"], 137);
  EXPECT_EQ(report["rows"]["titles"], 17);
  // The options files go beside the database unless a folder is named.
  EXPECT_EQ(report["options_files"].size(), 3u);
  EXPECT_TRUE(fs::exists(fresh.Path() / "sub" / "options2.rbo"));

  const Result again = Exec({"--db", db, "init"}, fresh.Path());
  EXPECT_EQ(again.code, 1);
  EXPECT_NE(again.err.find("already holds rows"), std::string::npos) << again.err;

  // RINGBOOK_DB names the database as --db does.
  const Result titles = Exec({"--tsv", "title", "list"}, fresh.Path(), "RINGBOOK_DB=" + Quote(db));
  ASSERT_EQ(titles.code, 0) << titles.err;
  EXPECT_EQ(Lines(titles.out).size(), 18u);  // a header and 17 titles
  EXPECT_EQ(Lines(titles.out)[0], "ID\tName");
}

TEST_F(CliTest, ListsFilterAsTheCollectionsDo) {
  const Json sites = OkJson({"location", "list", "--era", "5", "--site-rating", "20"});
  ASSERT_FALSE(sites.empty());
  for (const Json& s : sites) {
    EXPECT_EQ(s["Era"], 5);
    EXPECT_LE(s["SiteRating"].get<int>(), 20);
  }
  EXPECT_LT(sites.size(), OkJson({"location", "list", "--era", "5"}).size());
  EXPECT_EQ(OkJson({"location", "list"}).size(), 137u);

  // Officials are of era 0, so the pioneer-era list of judges is empty.
  EXPECT_EQ(OkJson({"judge", "list", "--era", "1"}).size(), 0u);
  EXPECT_EQ(OkJson({"judge", "list", "--era", "0"}).size(), 117u);

  const std::vector<std::string> table = Lines(Ok({"referee", "list"}));
  ASSERT_EQ(table.size(), 37u);
  EXPECT_EQ(table[0].rfind("ID  Name", 0), 0u) << table[0];
}

TEST_F(CliTest, SimpleRecordsAreAddedEditedShownAndRemoved) {
  const Json added = OkJson({"title", "add", "--name", "European Title"});
  const int id = added["ID"].get<int>();
  EXPECT_EQ(id, 18);
  EXPECT_EQ(Ok({"title", "edit", std::to_string(id), "--name", "EBU Title"}), "updated title 18\n");
  EXPECT_EQ(OkJson({"title", "show", "18"})["Name"], "EBU Title");
  EXPECT_EQ(Ok({"title", "remove", "18"}), "removed title 18\n");
  ExpectFailure({"title", "show", "18"}, 1, "no title with ID 18");

  const Json man = OkJson({"cornerman", "add", "--first-name", "Angelo", "--last-name", "Dundee",
                           "--specialty", "2", "--discipline", "9"});
  const Json shown = OkJson({"cornerman", "show", std::to_string(man["ID"].get<int>())});
  EXPECT_EQ(shown["Name"], "Angelo Dundee");
  EXPECT_EQ(shown["Discipline"], 9);
  EXPECT_EQ(shown["Specialty"], 2);

  // A judge keeps what is not changed.
  const Json before = OkJson({"judge", "show", "7"});
  const Json after = OkJson({"judge", "edit", "7", "--bias", "2"});
  EXPECT_EQ(after["Bias"], 2);
  EXPECT_EQ(after["LastName"], before["LastName"]);

  const std::vector<std::string> fields = Lines(Ok({"--tsv", "location", "show", "12"}));
  EXPECT_EQ(fields[0], "ID\t12");
}

TEST_F(CliTest, TablesAlignByCharacterAndKeepEachRowOnOneLine) {
  // Venue names with letters beyond ASCII ("Brøndby") still line up: the
  // columns are counted in characters, not bytes.
  const std::vector<std::string> table = Lines(Ok({"location", "list", "--era", "5"}));
  ASSERT_GT(table.size(), 2u);
  auto column = [](const std::string& line, const std::string& header_or_cell) {
    const std::size_t at = line.find(header_or_cell);
    std::size_t chars = 0;
    for (std::size_t i = 0; i < at; ++i) chars += (line[i] & 0xC0) != 0x80;
    return chars;
  };
  const std::size_t city = column(table[0], "City");
  bool seen = false;
  for (const std::string& line : table) {
    if (line.find("Brøndby Hallen") == std::string::npos) continue;
    seen = true;
    EXPECT_EQ(column(line, "Brøndby  "), city) << line;
  }
  EXPECT_TRUE(seen);
  // Numbers are right-aligned: the header of three-digit IDs is padded.
  EXPECT_EQ(table[0].substr(0, 5), " ID  ");
  EXPECT_EQ(table[1].substr(0, 3).find_first_not_of("0123456789"), std::string::npos) << table[1];

  // A tab or line end inside a value would break the row.
  Ok({"title", "add", "--name", "Belt\twith\ntabs"});
  const std::vector<std::string> tsv = Lines(Ok({"--tsv", "title", "list"}));
  ASSERT_EQ(tsv.size(), 19u);
  EXPECT_EQ(tsv[1], "18\tBelt with tabs");
  EXPECT_EQ(OkJson({"title", "show", "18"})["Name"], "Belt\twith\ntabs");
}

TEST_F(CliTest, FighterIsWrittenBySectionThroughTheRecordsRules) {
  const Json added =
      OkJson({"fighter", "add", "--first-name", "Joe", "--last-name", "Bloggs", "--group-id", "1",
              "--division", "17", "--rating", "80", "--j3", "12.5", "--tko", "0"});
  const std::string id = std::to_string(added["ID"].get<int>());
  EXPECT_EQ(added["J3"], 12.5);
  EXPECT_EQ(added["Tko"], 1);  // the record keeps Tko at 1 or more

  Ok({"fighter", "edit", id, "--rating", "82", "--nick-name", "Hammer"});
  Ok({"fighter", "edit", id, "--won", "10", "--lost", "2", "--performance", "4.5"});
  Json f = OkJson({"fighter", "show", id});
  EXPECT_EQ(f["Rating"], 82);
  EXPECT_EQ(f["Name"], "Joe Hammer Bloggs");
  EXPECT_EQ(f["Record"], "10 - 2 - 0");
  EXPECT_EQ(f["Performance"], 4.5);
  EXPECT_EQ(f["Titles"], Json::array());

  // A field of the other section would not be written: refused.
  ExpectFailure({"fighter", "edit", id, "--section", "profile", "--won", "3"}, 2,
                "not in the profile section");
  EXPECT_EQ(OkJson({"fighter", "show", id})["Won"], 10);

  const Json profile = OkJson({"fighter", "show", id, "--section", "profile"});
  EXPECT_TRUE(profile.contains("Rating"));
  EXPECT_FALSE(profile.contains("Won"));

  const std::vector<std::string> list = Lines(Ok({"--tsv", "fighter", "list"}));
  ASSERT_EQ(list.size(), 2u);
  EXPECT_EQ(list[0], "ID\tName\tGroupID\tDivision\tRating\tProficiency\tRecord");
  EXPECT_EQ(list[1], id + "\tJoe Hammer Bloggs\t1\t17\t82\t0\t10 - 2 - 0");

  Ok({"fighter", "remove", id});
  ExpectFailure({"fighter", "show", id}, 1, "no fighter with ID " + id);
}

TEST_F(CliTest, RecordedBoutsMakeTheHistoryLatestFirst) {
  const std::string id = std::to_string(
      OkJson({"fighter", "add", "--first-name", "Ana", "--last-name", "Lopez"})["ID"].get<int>());
  Ok({"fighter", "record-bout",  id,           "--opponent",   "Sam Stone",   "--won-lost",
      "W",       "--decision",   "KO",         "--last-round", "3",           "--scheduled-rounds",
      "10",      "--fight-date", "2024-05-01", "--division",   "Heavyweight", "--won",
      "1",       "--kos",        "1"});
  Ok({"fighter", "record-bout", id, "--opponent", "Bo Bean", "--won-lost", "L", "--decision", "UD",
      "--last-round", "12", "--scheduled-rounds", "12", "--fight-date", "2024-09-20", "--notes",
      "close", "--lost", "1"});

  const std::vector<std::string> history = Lines(Ok({"--tsv", "fighter", "history", id}));
  ASSERT_EQ(history.size(), 3u);
  EXPECT_EQ(history[0],
            "Division\tDate\tOpponent\tWonLostDraw\tDecision\tLastRound\tScheduledRounds\tNotes");
  EXPECT_EQ(history[1], "\t2024-09-20\tBo Bean\tL\tUD\t12\t12\tclose");
  EXPECT_EQ(history[2], "Heavyweight\t2024-05-01\tSam Stone\tW\tKO\t3\t10\t");

  // The career totals given with each bout are his.
  const Json career = OkJson({"fighter", "show", id, "--section", "career"});
  EXPECT_EQ(career["Record"], "1 - 1 - 0");
  EXPECT_EQ(career["Kos"], 1);

  ExpectFailure({"fighter", "record-bout", id, "--won", "2"}, 2, "describe the bout");
  EXPECT_EQ(Lines(Ok({"--tsv", "fighter", "history", id})).size(), 3u);
}

TEST_F(CliTest, FightersFromJsonAndTheGroupList) {
  AddSampleFighters();
  const Json heavy = OkJson({"fighter", "list", "--group", "1", "--division", "17"});
  ASSERT_EQ(heavy.size(), 6u);
  for (const Json& f : heavy) EXPECT_EQ(f["Division"], 17);
  // The fighter list's proficiency band 4 holds the elite only (75 and up).
  const Json elite =
      OkJson({"fighter", "list", "--group", "1", "--division", "17", "--proficiency", "4"});
  ASSERT_EQ(elite.size(), 1u);
  EXPECT_EQ(elite[0]["Name"], "Marcus Hammer Delaney");
  EXPECT_EQ(OkJson({"fighter", "list"}).size(), 8u);

  // A document with a field the fighter does not have is refused whole.
  WriteAll(File("bad.json"), R"([{"FirstName": "A"}, {"Height": 190}])");
  ExpectFailure({"fighter", "add", "--from-json", File("bad.json")}, 2, "unknown field \"Height\"");
  EXPECT_EQ(OkJson({"fighter", "list"}).size(), 8u);
}

TEST_F(CliTest, RankingsInBothOrdersAsTableTsvAndJson) {
  AddSampleFighters();
  const std::vector<std::string> by_titles =
      Lines(Ok({"--tsv", "rankings", "--group", "1", "--division", "17"}));
  ASSERT_EQ(by_titles.size(), 7u);
  EXPECT_EQ(by_titles[0], "Rank\tPerformance\tName\tRating\tStyle\tTitles");
  EXPECT_EQ(by_titles[1], "1\t9.125\tMarcus Hammer Delaney\t88\tBoxer\tWorld Heavyweight Title");
  // A title holder comes before better performers without one.
  EXPECT_EQ(by_titles[2], "2\t5.25\tKwame Osei\t75\tBoxer-puncher\tWorld Cruiserweight Title");
  EXPECT_EQ(by_titles[6], "UR\t\tDeclan Hurst\t70\tBoxer\t");

  const Json by_points =
      OkJson({"rankings", "--group", "1", "--division", "17", "--by", "performance"});
  ASSERT_EQ(by_points.size(), 6u);
  EXPECT_EQ(by_points[1]["Name"], "Viktor Sandoval");
  EXPECT_EQ(by_points[1]["Rank"], 2);
  EXPECT_EQ(by_points[1]["Performance"], "7.50");
  EXPECT_EQ(by_points[5]["Rank"], "UR");
  EXPECT_EQ(
      Ok({"rankings", "--group", "1", "--division", "13"}).rfind("Rank  Performance  Name", 0), 0u);

  ExpectFailure({"rankings", "--group", "9"}, 1, "no group with ID 9");
  ExpectFailure({"rankings", "--by", "weight"}, 2, "--by");
}

TEST_F(CliTest, FightCardRoundTripsByteForByte) {
  AddSampleFighters();
  const std::string card = File("main.rbc");
  Ok({"card", "new", card, "--name", "Main Event", "--date", "2025-06-14 20:00", "--location", "1",
      "--bout", "1:1,2", "--bout", "3:3,4"});

  Ok({"card", "export", card, "-o", File("main.json")});
  Json json = Json::parse(ReadAll(File("main.json")));
  EXPECT_EQ(json["kind"], "fight-card");
  EXPECT_EQ(json["Name"], "Main Event");
  EXPECT_EQ(json["Location"]["ID"], 1);
  EXPECT_EQ(json["Bouts"][0]["Fighters"][0]["LastName"], "Delaney");
  EXPECT_EQ(json["Bouts"][2]["Fighters"][1]["FighterID"], 4);
  EXPECT_EQ(json["Bouts"][0]["Options"]["Referee"]["ID"], 2);

  Ok({"card", "import", File("main.json"), "-o", File("copy.rbc")});
  EXPECT_EQ(ReadAll(File("copy.rbc")), ReadAll(card));

  // An edited document gives a different file that reads back as edited.
  json["Name"] = "Co-Feature";
  json["Bouts"][1]["Fighters"][0]["FirstName"] = "Zoë";
  WriteAll(File("edited.json"), json.dump());
  Ok({"card", "import", File("edited.json"), "-o", File("edited.rbc")});
  EXPECT_NE(ReadAll(File("edited.rbc")), ReadAll(card));
  const Json back = OkJson({"card", "show", File("edited.rbc")});
  EXPECT_EQ(back["Name"], "Co-Feature");
  EXPECT_EQ(back["Bouts"][1]["Fighters"][0]["FirstName"], "Zoë");

  const std::string shown = Ok({"card", "show", card});
  EXPECT_NE(shown.find("Main Event"), std::string::npos);
  EXPECT_NE(shown.find("Marcus Delaney"), std::string::npos);
  EXPECT_NE(shown.find("2025-06-14 20:00:00"), std::string::npos);

  ExpectFailure({"card", "import", File("main.json"), "-o", card}, 1, "exists");
  Ok({"card", "import", File("main.json"), "-o", card, "--force"});
}

TEST_F(CliTest, TournamentRoundTripsAndDrawsItsBracket) {
  const std::string file = File("gp.rbt");
  Ok({"tournament", "new", file, "--name", "Grand Prix", "--levels", "3"});
  Ok({"tournament", "export", file, "-o", File("gp.json")});
  Ok({"tournament", "import", File("gp.json"), "-o", File("gp2.rbt")});
  EXPECT_EQ(ReadAll(File("gp2.rbt")), ReadAll(file));

  Json json = Json::parse(ReadAll(File("gp.json")));
  ASSERT_EQ(json["Levels"].size(), 3u);
  EXPECT_EQ(json["Levels"][2]["Brackets"], 8);
  EXPECT_EQ(json["Levels"][0]["Brackets"], 2);
  // The tournament options' rounds per level: 15 for the final.
  EXPECT_EQ(json["Levels"][0]["Rounds"], 15);
  EXPECT_EQ(json["Options"]["Style"], 2);
  const char* names[] = {"Ana", "Ben", "Cy", "Dee", "Eve", "Fay", "Gus", "H&<M>"};
  for (int b = 0; b < 4; ++b) {
    json["Levels"][2]["Bouts"][b]["Fighters"][0]["FirstName"] = names[2 * b];
    json["Levels"][2]["Bouts"][b]["Fighters"][1]["FirstName"] = names[2 * b + 1];
  }
  json["Levels"][2]["DisplayFight"][3] = false;
  WriteAll(File("drawn.json"), json.dump());
  Ok({"tournament", "import", File("drawn.json"), "-o", File("drawn.rbt")});
  // What a drawn tournament exports imports back to the same bytes.
  Ok({"tournament", "export", File("drawn.rbt"), "-o", File("drawn2.json")});
  EXPECT_EQ(Json::parse(ReadAll(File("drawn2.json"))), json);
  Ok({"tournament", "import", File("drawn2.json"), "-o", File("drawn2.rbt")});
  EXPECT_EQ(ReadAll(File("drawn2.rbt")), ReadAll(File("drawn.rbt")));

  Ok({"tournament", "bracket", File("drawn.rbt")});
  const std::string svg = ReadAll(File("drawn.svg"));
  EXPECT_EQ(svg.rfind("<?xml", 0), 0u);
  EXPECT_NE(svg.find("<svg xmlns=\"http://www.w3.org/2000/svg\""), std::string::npos);
  EXPECT_NE(svg.find(">Grand Prix</text>"), std::string::npos);
  EXPECT_NE(svg.find(">Ana</text>"), std::string::npos);
  EXPECT_NE(svg.find(">H&amp;&lt;M&gt;</text>"), std::string::npos);
  std::size_t boxes = 0;
  for (std::size_t at = svg.find("class=\"bout\""); at != std::string::npos;
       at = svg.find("class=\"bout\"", at + 1)) {
    ++boxes;
  }
  EXPECT_EQ(boxes, 4u + 2u + 1u);
  EXPECT_NE(svg.find("opacity=\"0.5\""), std::string::npos);  // the hidden bout

  EXPECT_NE(Ok({"tournament", "show", File("drawn.rbt")}).find("Ana"), std::string::npos);
}

TEST_F(CliTest, OptionsFilesShowExportAndImport) {
  const Json single = OkJson({"options", "export", "--style", "0"});
  EXPECT_EQ(single["kind"], "options");
  EXPECT_EQ(single["Style"], 0);
  // The single-fight defaults take referee 2 and judges 4 to 6 of the world.
  EXPECT_EQ(single["Referee"]["ID"], 2);
  EXPECT_EQ(single["Judges"][0]["ID"], 4);
  EXPECT_EQ(single["Judges"][2]["ID"], 6);
  EXPECT_EQ(single["Rounds"], 10);

  for (const char* style : {"0", "1", "2"}) {
    const std::string json = File(std::string("o") + style + ".json");
    const std::string copy = File(std::string("o") + style + ".copy");
    Ok({"options", "export", "--style", style, "-o", json});
    Ok({"options", "import", json, "-o", copy});
    EXPECT_EQ(ReadAll(copy), ReadAll(File(std::string("options") + style + ".rbo")))
        << "style " << style;
  }

  const std::string shown = Ok({"options", "show", "--style", "2"});
  EXPECT_NE(shown.find("TournamentDefaultLevels"), std::string::npos);
  EXPECT_EQ(shown.find("FightCardBout"), std::string::npos);
  EXPECT_NE(Ok({"options", "show", File("options0.rbo")}).find("Octavio"), std::string::npos);
  ExpectFailure({"options", "show", "--style", "3"}, 2, "style 3 has no options file");

  // Each display switch clears others when set; the values of a document
  // that agree with each other come back as they were.
  Json json = single;
  json["QuietDisplay"] = true;
  json["AutoScroll"] = false;
  json["ShowRingCard"] = false;
  json["HometownFavorite"] = 2;
  WriteAll(File("quiet.json"), json.dump());
  Ok({"options", "import", File("quiet.json"), "-o", File("quiet.rbo")});
  const Json back = OkJson({"options", "show", File("quiet.rbo")});
  EXPECT_EQ(back["QuietDisplay"], true);
  EXPECT_EQ(back["ShowRingCard"], false);
  EXPECT_EQ(back["HometownFavorite"], 2);
}

TEST_F(CliTest, PreviewIsTheSameForTheSameSeedAndFollowsItsOptionsFile) {
  AddSampleFighters();
  const std::string first = Ok({"preview", "1", "2", "--seed", "42"});
  EXPECT_EQ(Ok({"preview", "1", "2", "--seed", "42"}), first);
  EXPECT_NE(first.find("Bout preview, seed 42"), std::string::npos);
  EXPECT_NE(first.find("Odds "), std::string::npos);

  const Json json = OkJson({"preview", "1", "2", "--seed", "42", "--samples", "8"});
  EXPECT_EQ(json, OkJson({"preview", "1", "2", "--seed", "42", "--samples", "8"}));
  EXPECT_EQ(json["Seed"], 42);
  EXPECT_EQ(json["Corners"][0]["Trainer"], 1);  // the fighter's own corner
  EXPECT_EQ(json["Corners"][0]["Punches"].size(), 8u);
  EXPECT_EQ(json["Corners"][1]["KnockedOut"].size(), 4u);
  // The stored ratings are not changed by a preview.
  EXPECT_EQ(OkJson({"fighter", "show", "1"})["Pl"], 44);
  // Fighter 1 is a heavyweight (17), fighter 7 a middleweight (13): with
  // the weight-class adjustment the heavier man's Kdr1 rises by the four
  // divisions between them, and nothing else in the dice changes.
  Json options = OkJson({"options", "export", "--style", "0"});
  options["AdjWeightClass"] = true;
  WriteAll(File("on.json"), options.dump());
  options["AdjWeightClass"] = false;
  WriteAll(File("off.json"), options.dump());
  Ok({"options", "import", File("on.json"), "-o", File("on.rbo")});
  Ok({"options", "import", File("off.json"), "-o", File("off.rbo")});
  auto kdr1 = [&](const std::string& options, const char* which) {
    const Json p = OkJson({"preview", "1", "7", "--seed", "5", "--options", File(options)});
    for (const Json& r : p["Ratings"]) {
      if (r["Rating"] == "Kdr1") return r[which].get<int>();
    }
    ADD_FAILURE() << "no Kdr1";
    return 0;
  };
  EXPECT_EQ(kdr1("on.rbo", "After1") - kdr1("off.rbo", "After1"), 4);
  EXPECT_EQ(kdr1("on.rbo", "After2"), kdr1("off.rbo", "After2"));
  ExpectFailure({"preview", "1", "7", "--options", File("gp.rbt")}, 1, "no such file");
  ExpectFailure({"preview", "1", "1"}, 2, "cannot fight himself");
  ExpectFailure({"preview", "1", "2", "--cutman2", "999"}, 1, "no cornerman with ID 999");
}

TEST_F(CliTest, AMissingDatabaseIsNamedAndNeverCreated) {
  const std::string missing = File("nowhere/none.db");
  for (const std::vector<std::string>& args : {std::vector<std::string>{"fighter", "list"},
                                               {"judge", "show", "1"},
                                               {"rankings"},
                                               {"preview", "1", "2"},
                                               {"title", "add", "--name", "X"}}) {
    std::vector<std::string> full = {"--db", missing};
    full.insert(full.end(), args.begin(), args.end());
    const Result r = Exec(full, dir_.Path());
    SCOPED_TRACE(Join(args));
    EXPECT_EQ(r.code, 1);
    EXPECT_EQ(r.err, "ringbook: no game database at '" + missing +
                         "' (create one with 'ringbook init', or name one with --db)\n");
    EXPECT_FALSE(fs::exists(missing));
  }
}

TEST_F(CliTest, UnknownIdsAreRefused) {
  ExpectFailure({"fighter", "edit", "999", "--rating", "5"}, 1, "no fighter with ID 999");
  ExpectFailure({"fighter", "history", "0"}, 1, "no fighter with ID 0");
  ExpectFailure({"judge", "edit", "999", "--era", "1"}, 1, "no judge with ID 999");
  ExpectFailure({"location", "remove", "999"}, 1, "no location with ID 999");
  ExpectFailure({"cornerman", "show", "-4"}, 1, "no cornerman with ID -4");
  ExpectFailure({"group", "show", "2"}, 1, "no group with ID 2");
  ExpectFailure({"card", "new", File("x.rbc"), "--bout", "1:1,2"}, 1, "no fighter with ID 1");
  ExpectFailure({"card", "new", File("x.rbc"), "--location", "500"}, 1, "no location with ID 500");
  EXPECT_FALSE(fs::exists(File("x.rbc")));
  // Nothing was removed in place of the unknown row.
  EXPECT_EQ(OkJson({"location", "list"}).size(), 137u);
}

TEST_F(CliTest, DamagedAndForeignFilesAreRefused) {
  Ok({"card", "new", File("c.rbc")});
  Ok({"tournament", "new", File("t.rbt")});
  const std::string card = ReadAll(File("c.rbc"));

  WriteAll(File("short.rbc"), card.substr(0, card.size() / 2));
  ExpectFailure({"card", "show", File("short.rbc")}, 1, "is damaged: the fight card ends");
  WriteAll(File("long.rbc"), card + "tail");
  ExpectFailure({"card", "export", File("long.rbc")}, 1, "4 bytes follow");
  ExpectFailure({"card", "show", File("t.rbt")}, 1, "damaged");
  ExpectFailure({"tournament", "show", File("c.rbc")}, 1, "damaged");
  WriteAll(File("picture.rbc"), "\x89PNG\r\n\x1a\n and more");
  ExpectFailure({"card", "show", File("picture.rbc")}, 1, "is not a fight card file");
  WriteAll(File("empty.rbo"), "");
  ExpectFailure({"options", "show", File("empty.rbo")}, 1, "is not an options file");
  ExpectFailure({"tournament", "bracket", File("none.rbt")}, 1, "no such file");

  WriteAll(File("broken.json"), "{\"kind\": ");
  ExpectFailure({"card", "import", File("broken.json"), "-o", File("n.rbc")}, 1,
                "is not valid JSON");
  Ok({"tournament", "export", File("t.rbt"), "-o", File("t.json")});
  ExpectFailure({"card", "import", File("t.json"), "-o", File("n.rbc")}, 2, "is not a fight-card");
  Json t = Json::parse(ReadAll(File("t.json")));
  t["Levels"][0]["Brackets"] = 3;
  WriteAll(File("t3.json"), t.dump());
  ExpectFailure({"tournament", "import", File("t3.json"), "-o", File("n.rbt")}, 2,
                "Brackets must be 2, 4, 8 or 16");
  t.erase("Name");
  WriteAll(File("t4.json"), t.dump());
  ExpectFailure({"tournament", "import", File("t4.json"), "-o", File("n.rbt")}, 2,
                "\"Name\" is missing");
  EXPECT_FALSE(fs::exists(File("n.rbc")));
  EXPECT_FALSE(fs::exists(File("n.rbt")));
}

TEST_F(CliTest, BadArgumentsAreUsageErrors) {
  ExpectFailure({}, 2, "'ringbook' needs a command: init, location,");
  ExpectFailure({"card"}, 2, "'ringbook card' needs a command: show, export, import, new");
  ExpectFailure({"frobnicate"}, 2, "'frobnicate' is not a command of 'ringbook'");
  ExpectFailure({"fighter", "frob"}, 2, "'frob' is not a command of 'ringbook fighter'");
  ExpectFailure({"fighter", "show", "abc"}, 2, "abc");
  ExpectFailure({"fighter", "show"}, 2, "id");
  ExpectFailure({"judge", "list", "--era", "x"}, 2, "--era");
  ExpectFailure({"judge", "add", "--era", "70000"}, 2, "--era: 70000 is outside -32768..32767");
  ExpectFailure({"fighter", "add", "--cb2", "lots"}, 2, "--cb2: 'lots' is not a number");
  ExpectFailure({"fighter", "add", "--has-performance", "maybe"}, 2, "is not true or false");
  ExpectFailure({"fighter", "record-bout", "1", "--opponent", "X", "--fight-date", "2024-13-01"}, 2,
                "is not a date");
  ExpectFailure({"judge", "edit", "3"}, 2, "give at least one field");
  ExpectFailure({"--json", "--tsv", "title", "list"}, 2, "excludes");
  ExpectFailure({"tournament", "new", File("t.rbt"), "--levels", "5"}, 2, "--levels");
  ExpectFailure({"card", "new", File("c.rbc"), "--bout", "5:1,2"}, 2, "position 1 to 4");
  ExpectFailure({"location", "list", "--site-rating", "30"}, 2, "--era");
}

TEST_F(CliTest, EveryCommandHasHelp) {
  std::vector<std::vector<std::string>> all;
  for (const char* command : {"",
                              "init",
                              "fighter",
                              "fighter list",
                              "fighter show",
                              "fighter add",
                              "fighter edit",
                              "fighter record-bout",
                              "fighter history",
                              "fighter remove",
                              "rankings",
                              "preview",
                              "card new",
                              "card show",
                              "card export",
                              "card import",
                              "tournament new",
                              "tournament bracket",
                              "options show",
                              "version",
                              "stream demo"}) {
    std::vector<std::string> words;
    std::istringstream in(command);
    for (std::string w; in >> w;) words.push_back(w);
    all.push_back(words);
  }
  // The seven simple collections share one implementation: every verb of
  // one, the list of the others.
  for (const char* verb : {"list", "show", "add", "edit", "remove"}) all.push_back({"judge", verb});
  for (const char* entity : {"location", "group", "referee", "announcer", "cornerman", "title"}) {
    all.push_back({entity, "list"});
  }
  for (std::vector<std::string> args : all) {
    args.push_back("--help");
    const Result r = Run(args);
    SCOPED_TRACE(Join(args));
    EXPECT_EQ(r.code, 0);
    EXPECT_NE(r.out.find("Usage:"), std::string::npos);
    EXPECT_EQ(r.err, "");
  }
  EXPECT_NE(Ok({"judge", "add", "--help"}).find("--last-name TEXT"), std::string::npos);
}

}  // namespace
