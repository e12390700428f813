#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/Export.h"
#include "core/IListControl.h"

namespace ringbook {

/// The objects of the host's installation that the component asks for help.
/// Each has a working default, created on first use per thread and kept for
/// the thread; a host or a test replaces it with `Set...` (nullptr restores
/// the default on next use).

/// Where the game database and the per-style options files are.
class ISettings {
 public:
  virtual ~ISettings() = default;
  /// Full path of the game database.
  virtual std::string DatabasePath() = 0;
  /// The two texts whose concatenation names a style's options file (styles
  /// 0, 1 and 2): the folder, ending in a path separator, and the file name.
  virtual std::string OptionsFolder(int16_t style) = 0;
  virtual std::string OptionsFileName(int16_t style) = 0;
};

/// Whole-number rolls for the fight engine.
class IDice {
 public:
  virtual ~IDice() = default;
  /// A whole number from `lower` to `upper`, both included. Note the order:
  /// the upper bound comes first.
  virtual int32_t Roll(int32_t upper, int32_t lower) = 0;
};

/// File and text helpers.
class IUtility {
 public:
  virtual ~IUtility() = default;
  virtual bool FileExists(const std::string& path) = 0;
  /// Checks a fighter's picture path; may rewrite `path` (for example to an
  /// absolute path). False when the picture cannot be used.
  virtual bool CheckPicturePath(std::string& path) = 0;
  /// Puts the temporary file's bytes in place of the target, atomically, and
  /// leaves no temporary file behind. Throws `Error` when it cannot.
  virtual void ReplaceFile(const std::string& target, const std::string& temporary) = 0;
  virtual bool IsEven(int32_t value) = 0;
  /// Text utility: collapses every run of `separator` into one.
  virtual std::string CollapseSeparators(const std::string& text, const std::string& separator) = 0;
  /// Text utility: removes `separator` from both ends.
  virtual std::string TrimSeparators(const std::string& text, const std::string& separator) = 0;
  /// List utility: prepares a control for binding and returns the control to
  /// keep (the default returns it unchanged).
  virtual std::shared_ptr<IListControl> PrepareList(std::shared_ptr<IListControl> control) = 0;
};

/// Display texts of coded values, for the tab-separated list texts.
class IDisplayText {
 public:
  virtual ~IDisplayText() = default;
  /// A judge's scoring bias.
  virtual std::string BiasText(int32_t bias) = 0;
  /// A referee's rating of fouls, stoppage or judgement.
  virtual std::string RefereeRatingText(int16_t rating) = 0;
  /// A cornerman's specialty code.
  virtual std::string SpecialtyText(int16_t specialty) = 0;
  /// An era code.
  virtual std::string EraText(int16_t era) = 0;
};

/// The proficiency band that a fighter list shows: fighters whose
/// `Proficiency` lies from `Low` to `High`, both included.
struct ProficiencyBounds {
  int16_t Low = 0;
  int16_t High = 0;
};

/// Proficiency bands and coded texts of the fighter lists and rankings.
class ILookup {
 public:
  /// The text categories of `Text`.
  static constexpr int32_t kActiveRetired = 1;
  static constexpr int32_t kFightingStyle = 4;

  virtual ~ILookup() = default;
  /// The bounds of proficiency filter value `filter` (0 is the filter a
  /// fighter list starts with).
  virtual ProficiencyBounds Proficiency(int16_t filter) = 0;
  /// The display text of `code` in `category` (`kFightingStyle` for a
  /// fighter's "Style", `kActiveRetired` for his "ActiveRetired").
  virtual std::string Text(int32_t category, int32_t code) = 0;
};

/// Where message boxes go: the CLI prints them on standard error, the COM
/// server shows them (or logs them), tests record them.
class IMessageSink {
 public:
  virtual ~IMessageSink() = default;
  /// Shows `text` with only an OK button and no title.
  virtual void Show(const std::string& text) = 0;
};

/// The calling thread's objects, created with their defaults on first use.
RINGBOOK_EXPORT ISettings& Settings();
RINGBOOK_EXPORT IDice& Dice();
RINGBOOK_EXPORT IUtility& Utility();
RINGBOOK_EXPORT IMessageSink& MessageSink();
RINGBOOK_EXPORT IDisplayText& DisplayText();
RINGBOOK_EXPORT ILookup& Lookup();

RINGBOOK_EXPORT void SetSettings(std::shared_ptr<ISettings> settings);
RINGBOOK_EXPORT void SetDice(std::shared_ptr<IDice> dice);
RINGBOOK_EXPORT void SetUtility(std::shared_ptr<IUtility> utility);
RINGBOOK_EXPORT void SetMessageSink(std::shared_ptr<IMessageSink> sink);
RINGBOOK_EXPORT void SetDisplayText(std::shared_ptr<IDisplayText> display_text);
RINGBOOK_EXPORT void SetLookup(std::shared_ptr<ILookup> lookup);

/// The settings object the calling thread holds now, without making one:
/// nullptr while the thread has neither set one nor used the default. Code
/// that points the settings elsewhere for a while keeps this and hands it
/// back to `SetSettings` afterwards.
RINGBOOK_EXPORT std::shared_ptr<ISettings> CurrentSettings();

/// Shows a message through the thread's message sink.
RINGBOOK_EXPORT void ShowMessage(const std::string& text);

}  // namespace ringbook
