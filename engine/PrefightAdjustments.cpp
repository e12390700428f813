// The pre-fight chain of `CFighterInFight` and its adjustments. Each one
// changes the ratings of the held record (`FR`) through the record's setters,
// so the record's floors and change flags apply to every change. The tables of
// the designed adjustments are in AdjustmentTables_impl.h.

#include <algorithm>

#include "core/Error.h"
#include "core/HostServices.h"
#include "engine/AdjustmentRules_impl.h"
#include "engine/AdjustmentTables_impl.h"
#include "engine/CFighterInFight.h"
#include "options/COptions.h"

namespace ringbook {

using namespace engine_detail;

void CFighterInFight::MakePrefightAdjustments(const CFighterInFight& Opponent,
                                              const COptions& Options, bool SkipTraining) {
  if (!SkipTraining) {
    int16_t steps = 0;
    AdjustForTraining(steps);
  }
  Variant stage;
  AdjustForCareerStage(stage);

  AdjustForSouthPaw(static_cast<uint8_t>(Opponent.Record().SouthPaw() & 0xFF));

  if (use_conditioning_ != -1) {
    AdjustForConditioning();
  } else {
    // A disciplined corner keeps the fighter to his regime: three chances in
    // a hundred per point of the better discipline of the two cornermen.
    const int16_t cut_man = CutManRef().Discipline();
    const int16_t trainer = TrainerRef().Discipline();
    const int discipline = std::max(cut_man, trainer);
    const int32_t roll = Dice().Roll(100, 1);
    if (roll > 3 * discipline) AdjustForConditioning();
  }

  const std::shared_ptr<CReferee> referee = Options.Referee();
  if (!referee) throw Error::ObjectNotSet();
  AdjustForReferee(referee->Stoppage());

  if (Options.AdjWeightClass()) AdjustForWeightClass(Opponent.Record().Division());
}

void CFighterInFight::AdjustForReferee(int16_t RefereeStoppage) {
  CFighter& fr = Record();
  if (RefereeStoppage == 0) {
    fr.SetTko(AddInteger(fr.Tko(), +1));
  } else if (RefereeStoppage == 2) {
    fr.SetTko(AddInteger(fr.Tko(), -1));  // the record keeps Tko at 1 or more
  }
}

void CFighterInFight::AdjustForSouthPaw(uint8_t OpponentIsSouthPaw) {
  // Only the orthodox fighter is troubled by the other stance; a south-paw is
  // used to orthodox opponents, and two south-paws cancel out.
  if (OpponentIsSouthPaw == 0) return;
  CFighter& fr = Record();
  if (fr.SouthPaw() != 0) return;
  const int32_t roll = Dice().Roll(100, 1);
  const int loss = roll > 20 ? 2 : 1;
  fr.SetPl(AddInteger(fr.Pl(), -loss));
  fr.SetCp(AddInteger(fr.Cp(), -loss));
  fr.SetCfb(AddInteger(fr.Cfb(), -1));
  fr.SetCfs(AddInteger(fr.Cfs(), -1));
  fr.SetDefn(AddInteger(fr.Defn(), +1));
}

void CFighterInFight::AdjustForWeightClass(int16_t OpponentDivision) {
  CFighter& fr = Record();
  const int d = fr.Division() - OpponentDivision;
  if (d <= 0) return;
  const int cfb = fr.Cfb() - d;
  fr.SetCfb(cfb < 1 ? int16_t{1} : static_cast<int16_t>(cfb));
  const int cfs = fr.Cfs() - d;
  fr.SetCfs(cfs < 1 ? int16_t{1} : static_cast<int16_t>(cfs));
  fr.SetHp(AddInteger(fr.Hp(), -d));
  fr.SetPl(AddInteger(fr.Pl(), -2 * d));
  fr.SetCp(AddInteger(fr.Cp(), -2 * d));
  fr.SetKdr1(AddInteger(fr.Kdr1(), d));
  fr.SetKdr2(AddInteger(fr.Kdr2(), d));
  fr.SetDefn(AddInteger(fr.Defn(), 2 * d));
}

namespace {

int16_t TrainerRatingFor(const CCornerman& trainer, TrainerRating rating) {
  switch (rating) {
    case kTrainingOffense:
      return trainer.TrainingOffense();
    case kTrainingDefense:
      return trainer.TrainingDefense();
    case kTrainingAverage:
      break;
  }
  return trainer.TrainingAverage();
}

int StepsForTrainer(int16_t rating) {
  for (const TrainerGrade& grade : kTrainerGrades) {
    if (rating >= grade.min_rating) return grade.steps;
  }
  return 0;
}

}  // namespace

void CFighterInFight::AdjustForTraining(int16_t& v) {
  const TrainingFocusRow* focus = FindRow(kTrainingFocus, &TrainingFocusRow::focus, training_);
  if (focus == nullptr) {
    v = 0;  // no camp
    return;
  }
  CFighter& fr = Record();
  int steps = StepsForTrainer(TrainerRatingFor(TrainerRef(), focus->led_by));

  const int32_t camp = Dice().Roll(100, 1);
  if (camp <= kBadCampRoll) {
    --steps;
  } else if (camp >= kGoodCampRoll) {
    ++steps;
  }
  steps += focus->extra_steps + v;
  steps = std::clamp(steps, kMinTrainingSteps, kMaxTrainingSteps);

  // Steps go to the focus's ratings in turn, so no rating moves by more than
  // one point however the camp went.
  const int sign = steps < 0 ? -1 : 1;
  for (int i = 0; i < steps * sign; ++i) {
    const StatStep& step = focus->steps[static_cast<std::size_t>(i) % focus->steps.size()];
    MoveStat(fr, step.stat, step.gain * sign);
  }

  if (focus->overtraining_chance > 0 && RollWins(focus->overtraining_chance)) {
    ApplyStats(fr, focus->overtraining);
  }
  v = static_cast<int16_t>(steps);
}

void CFighterInFight::AdjustForCareerStage(Variant& v) {
  const int16_t stage = (v.IsEmpty() || v.IsNull()) ? career_ : v.ToInteger();
  v = Variant(stage);
  const CareerRow* row = FindRow(kCareer, &CareerRow::stage, stage);
  if (row == nullptr) return;
  CFighter& fr = Record();
  Penalties mode = Penalties::kFull;
  if (HasPenalty(row->change, kStatBands)) {
    const int chance = Chance(TrainerRef().Motivate(), kCareerMotivatePerPoint, kCareerMotivateCap);
    if (RollWins(chance)) mode = Penalties::kSpared;
  }
  ApplyStats(fr, row->change, mode);
}

void CFighterInFight::AdjustForConditioning() {
  const ConditionRow* row = FindRow(kCondition, &ConditionRow::condition, condition_);
  if (row == nullptr) return;
  CFighter& fr = Record();
  Penalties mode = Penalties::kFull;
  if (HasPenalty(row->change, kStatBands) || row->cf_modifier < 0) {
    const int chance = Chance(fr.Conditioning(), kConditioningPerPoint, kConditioningCap);
    if (RollWins(chance)) mode = Penalties::kHalved;
  }
  ApplyStats(fr, row->change, mode);
  cf_modifier_ =
      Nudge(cf_modifier_, Effective(row->cf_modifier, kCfModifierBand, mode), kCfModifierBand);
}

}  // namespace ringbook
