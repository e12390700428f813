#pragma once

#include <cstdint>

namespace ringbook {

/// The codes of the bout fields that the adjustments of `CFighterInFight`
/// read. The host sets the fields; docs/engine-adjustments.md gives what each
/// code does to the ratings. A value outside a list means "no effect".

/// `CFighterInFight::Training`: the focus of the fighter's training camp.
enum ETrainingFocus : int16_t {
  etfBalanced = 0,  ///< all-round camp, led by the trainer's `TrainingAverage`
  etfOffense = 1,   ///< punching camp, led by `TrainingOffense`
  etfDefense = 2,   ///< defensive camp, led by `TrainingDefense`
  etfHardCamp = 3,  ///< one extra step of gains, with a risk of overtraining
};

/// `CFighterInFight::Career`: where the fighter stands in his career. A new
/// in-fight state starts at `ecsPrime`, which changes nothing.
enum ECareerStage : int16_t {
  ecsNovice = 0,
  ecsRising = 1,
  ecsPrime = 2,
  ecsVeteran = 3,
  ecsFaded = 4,
};

/// `CFighterInFight::Condition`: the shape in which the fighter arrives.
enum ECondition : int32_t {
  ecnNormal = 0,
  ecnSharp = 1,
  ecnSoft = 2,
  ecnPoor = 3,
  ecnDrained = 4,  ///< weakened by making the weight
};

/// `CFighterInFight::StrategyUsed`: the plan the corner gives for a round.
enum EStrategy : int16_t {
  estNone = 0,     ///< the fighter fights his own fight
  estBox = 1,      ///< box at range
  estBrawl = 2,    ///< stand and trade
  estCounter = 3,  ///< wait and counter
  estAllOut = 4,   ///< go for the stoppage
  estSurvive = 5,  ///< hold, move and last the round
};

/// The `nInjuryType` of `CFighterInFight::AdjustForInjuries`. The fighter's
/// `Injuries` field holds one bit per type, bit (type - 1).
enum EInjuryType : int32_t {
  einHand = 1,
  einSwollenEye = 2,
  einRibs = 3,
  einShoulder = 4,
};

}  // namespace ringbook
