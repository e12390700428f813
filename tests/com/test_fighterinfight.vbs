' CFighterInFight: one fighter's state in a bout. Plain fields, tables with
' their index bases and clamps, the held record and cornermen, knock-outs and
' punches with the host's dice in place of the server's, and the pre-fight
' chain with an opponent and the bout's options.

' Dice that give the queued rolls in turn (and Fallback once they run out),
' logging each call's bounds.
Class QueuedDice
  Public Queue
  Public Log
  Public Fallback

  Private Sub Class_Initialize()
    Queue = ""
    Log = ""
    Fallback = 50
  End Sub

  Public Function Roll(Upper, Lower)
    Dim p
    Log = Log & Upper & "-" & Lower & ";"
    If Queue = "" Then
      Roll = Fallback
    Else
      p = InStr(Queue, ",")
      If p = 0 Then
        Roll = CLng(Queue)
        Queue = ""
      Else
        Roll = CLng(Left(Queue, p - 1))
        Queue = Mid(Queue, p + 1)
      End If
    End If
  End Function
End Class

Dim host, dice, f, g, fr, coach, cutMan, opts, ref, v
Set host = CreateObject("Korvat_Ringbook.CHostServices")
Set dice = New QueuedDice
Set host.Dice = dice

Set f = CreateObject("Korvat_Ringbook.CFighterInFight")

' ---- A fresh object ----
Check "Career starts at 2", f.Career, 2
Check "UseConditioning starts at -1", f.UseConditioning, CLng(-1)
Check "ScoreCardTotal of a fresh object", f.ScoreCardTotal, 0
CheckTrue "FR is present and the same object each time", f.FR Is f.FR And Not (f.FR Is Nothing)
CheckTrue "Trainer and CutMan are two cornermen", Not (f.Trainer Is f.CutMan)

' ---- Plain fields ----
f.Condition = 3
f.UseConditioning = 0
f.Career = 4
f.Winner = True
f.TournamentID = "T-17"
f.CfModifier = -2
f.EnduranceLost = 12
f.KnockDowns = 2
f.HandsLow = True
f.Injuries = 5
Check "Condition", f.Condition, CLng(3)
Check "UseConditioning", f.UseConditioning, CLng(0)
Check "Career", f.Career, 4
Check "Winner", f.Winner, True
Check "TournamentID", f.TournamentID, "T-17"
Check "CfModifier", f.CfModifier, -2
Check "EnduranceLost", f.EnduranceLost, 12
Check "KnockDowns", f.KnockDowns, 2
Check "HandsLow", f.HandsLow, True
Check "Injuries", f.Injuries, 5

' ---- Tables ----
f.Kdr1R(0) = 14
f.Kdr1R(3) = 14
Check "Kdr1R(0) is capped at 10", f.Kdr1R(0), 10
Check "Kdr1R(3) keeps 14", f.Kdr1R(3), 14
f.HpR(2) = -4
Check "HpR(2) of -4 reads 0", f.HpR(2), 0
f.LEyeSwelling(1) = 180
Check "LEyeSwelling(1) is capped at 100", f.LEyeSwelling(1), CByte(100)
f.PmCount(1) = 300
Check "PmCount(1) keeps the low byte", f.PmCount(1), CByte(44)
Check "PmTotal", f.PmTotal, 44
f.Cut(8) = 3
Check "Cut(8)", f.Cut(8), 3
f.PunchCount(2, 2) = 9
Check "PunchCount(7, 2) is PunchCount(2, 2)", f.PunchCount(7, 2), 9
Check "PunchCountTotal(0, 2)", f.PunchCountTotal(0, 2), 9
f.ScoreCard(1, 0) = 10
f.ScoreCard(2, 4) = 9
Check "ScoreCardTotal counts round 0", f.ScoreCardTotal(), 19
Check "ScoreCardTotal(0, 4)", f.ScoreCardTotal(0, 4), 9
f.PointsScored(0) = 10
Check "PointsScoredTotal counts round 0", f.PointsScoredTotal, 10

' ---- The held objects ----
Set fr = CreateObject("Korvat_Ringbook.CFighter")
fr.LastName = "Ortega"
Set f.FR = fr
CheckTrue "FR is the record handed in", f.FR Is fr
Check "FR's fields", f.FR.LastName, "Ortega"
Set coach = CreateObject("Korvat_Ringbook.CCornerman")
coach.Discipline = 34
Set f.Trainer = coach
CheckTrue "Trainer is the cornerman handed in", f.Trainer Is coach
Set cutMan = CreateObject("Korvat_Ringbook.CCornerman")
Set f.CutMan = cutMan
CheckTrue "CutMan is the cornerman handed in", f.CutMan Is cutMan

' ---- EitherStyle ----
fr.Style = 2
Check "EitherStyle with Style 2", f.EitherStyle, True
fr.Style = 1
Check "EitherStyle with Style 1", f.EitherStyle, False

' ---- Knock-outs: one roll from 1 to 100 ----
fr.Kor = 10
dice.Queue = "51"
dice.Log = ""
Check "IsKnockedout at Kor 10 with 51", f.IsKnockedout(), True
Check "IsKnockedout rolls 100 to 1", dice.Log, "100-1;"
dice.Queue = "50"
Check "IsKnockedout at Kor 10 with 50", f.IsKnockedout, False

' ---- Punches: J3 10 then H3 10 (types 1 and 2) ----
fr.J3 = 10
fr.H3 = 10
dice.Log = ""
dice.Queue = "500"
Check "PunchType with a draw of 5.00", f.PunchType, 1
Check "PunchType rolls 10000 to 1", dice.Log, "10000-1;"
dice.Queue = "5000"
Check "PunchType with a draw beyond the ratings", f.PunchType(False), 0
dice.Queue = "5000,1500"
dice.Log = ""
Check "PunchType(True) draws again", f.PunchType(True), 2
Check "PunchType(True) rolled twice", dice.Log, "10000-1;10000-1;"

' ---- Adjustments ----
v = Empty
f.AdjustForCareerStage v
Check "AdjustForCareerStage writes back the stage", v, 4
f.Career = 2
v = Empty
f.AdjustForCareerStage v
Check "AdjustForCareerStage of the prime", v, 2
v = 0
dice.Queue = ""
f.AdjustForTraining v
Check "AdjustForTraining writes back an Integer", VarType(v), vbInteger
CheckTrue "AdjustForTraining writes back the steps applied", v >= -2 And v <= 3
fr.Tko = 5
f.AdjustForReferee 2
Check "AdjustForReferee 2 lowers Tko", fr.Tko, 4
f.AdjustForReferee 1
Check "AdjustForReferee 1 changes nothing", fr.Tko, 4

' ---- The pre-fight chain ----
Set g = CreateObject("Korvat_Ringbook.CFighterInFight")
g.FR.Division = 3
fr.Division = 5
fr.Tko = 5
fr.Defn = 5
fr.Hp = 5
Set opts = CreateObject("Korvat_Ringbook.COptions")
Set ref = CreateObject("Korvat_Ringbook.CReferee")
ref.Stoppage = 0
Set opts.Referee = ref
opts.AdjWeightClass = True
f.UseConditioning = -1
dice.Queue = ""
f.MakePrefightAdjustments g, opts, True
Check "the chain: the referee's Tko + 1", fr.Tko, 6
Check "the chain: two divisions down, Defn + 4", fr.Defn, 9
Check "the chain: two divisions down, Hp - 2", fr.Hp, 3

' ---- Errors ----
On Error Resume Next
f.MakePrefightAdjustments fr, opts
CheckErr "MakePrefightAdjustments against a record", 13, "Korvat_Ringbook", "Type mismatch"
f.MakePrefightAdjustments g, ref
CheckErr "MakePrefightAdjustments with a referee for the options", 13, "Korvat_Ringbook", "Type mismatch"
f.MakePrefightAdjustments Nothing, opts
CheckErr "MakePrefightAdjustments against Nothing", 91, "Korvat_Ringbook", "Object variable or With block variable not set"
Set f.Trainer = fr
CheckErr "a record as the trainer", 13, "Korvat_Ringbook", "Type mismatch"
f.Clone fr
CheckErr "Clone into a record", 13, "Korvat_Ringbook", "Type mismatch"
f.AdjustForSouthPaw 300
CheckErr "AdjustForSouthPaw past a byte", 6, VBS, "Overflow"
v = 70000
f.AdjustForTraining v
CheckErr "AdjustForTraining past 16 bits", 6, "Korvat_Ringbook", "Overflow"
Set f.FR = Nothing
Check "FR set to Nothing", f.FR Is Nothing, True
Err.Clear
v = f.EitherStyle
CheckErr "EitherStyle without a record", 91, "Korvat_Ringbook", "Object variable or With block variable not set"
On Error GoTo 0

' ---- Clone ----
Set f.FR = fr
Set f = Nothing
Set f = CreateObject("Korvat_Ringbook.CFighterInFight")
f.ScoreCard(3, 2) = 8
f.Injuries = 1
g.Injuries = 6
f.Clone g
Check "a clone has the same totals", g.ScoreCardTotal, 8
Check "a clone keeps its own Injuries", g.Injuries, 6

Set host.Dice = Nothing
Finish
