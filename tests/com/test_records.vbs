' The record classes by ProgID: properties with their setter rules, Clone,
' optional arguments left out, and the errors a script sees.

Dim loc, loc2, grp, grp2, judge, judge2, ref, ref2, ann, ann2, cm, cm2, title, title2
Dim hist, hist2, f, f2, ver

' ---- CLocation ----
Set loc = CreateObject("Korvat_Ringbook.CLocation")
Check "location ID starts 0", loc.ID, CLng(0)
loc.Arena = " Alpha "
loc.City = "Beta"
loc.Country = "Gamma"
Check "location name composed of trimmed parts", loc.Name, "Alpha, Beta Gamma"
Check "arena keeps its blanks", loc.Arena, " Alpha "
loc.City = ""
Check "location name without city", loc.Name, "Alpha Gamma"
loc.Era = 2
Check "Era is a 16-bit Integer", loc.Era, 2
loc.ID = 41
Check "location ID can be set", loc.ID, CLng(41)
loc.PriceIndex = 70000
Check "PriceIndex is a Long", loc.PriceIndex, CLng(70000)
loc.SiteRating = 25
Set loc2 = CreateObject("Korvat_Ringbook.CLocation")
loc.Clone loc2
Check "location Clone", loc2.Name & "|" & loc2.ID & "|" & loc2.PriceIndex & "|" & loc2.SiteRating, "Alpha Gamma|41|70000|25"

On Error Resume Next
loc.Era = 70000
CheckErr "Era past 16 bits overflows", 6, VBS, "Overflow"
Check "overflowing Era left as it was", loc.Era, 2
loc.Era = "abc"
CheckErr "Era from text is a type mismatch", 13, VBS, "Type mismatch"
Set judge = CreateObject("Korvat_Ringbook.CJudge")
loc.Clone judge
CheckErr "Clone into another class", 13, "Korvat_Ringbook", "Type mismatch"
loc.Clone Nothing
CheckErr "Clone into Nothing", 91, "Korvat_Ringbook", "Object variable or With block variable not set"
loc.NoSuchMember = 1
CheckErr "unknown member", 438, VBS, "Object doesn't support this property or method"
On Error GoTo 0

' ---- CGroup ----
Set grp = CreateObject("Korvat_Ringbook.CGroup")
grp.Name = "Heavyweights"
Check "group name", grp.Name, "Heavyweights"
Check "group ID starts 0", grp.ID, CLng(0)
Set grp2 = CreateObject("Korvat_Ringbook.CGroup")
grp.Clone grp2
Check "group Clone", grp2.Name, "Heavyweights"
On Error Resume Next
grp.ID = 5
CheckTrue "group ID is read-only", Err.Number <> 0
Err.Clear
On Error GoTo 0

' ---- CJudge ----
judge.FirstName = " Ann "
judge.LastName = "Lee "
Check "judge name trims the parts", judge.Name, "Ann Lee"
Check "judge first name keeps its blanks", judge.FirstName, " Ann "
judge.Bias = -3
Check "judge bias is a Long", judge.Bias, CLng(-3)
judge.Era = 1
Set judge2 = CreateObject("Korvat_Ringbook.CJudge")
Check "judge without names is named by one blank", judge2.Name, " "
judge.Clone judge2
Check "judge Clone", judge2.Name & "|" & judge2.Bias & "|" & judge2.Era, "Ann Lee|-3|1"

' ---- CReferee ----
Set ref = CreateObject("Korvat_Ringbook.CReferee")
ref.FirstName = "Joe"
ref.LastName = "Cortez"
ref.Fouls = 4
ref.Stoppage = 5
ref.Judgement = 6
ref.ActiveRetired = 1
ref.Rating = 7
ref.Era = 3
Check "referee name", ref.Name, "Joe Cortez"
Set ref2 = CreateObject("Korvat_Ringbook.CReferee")
ref2.Rating = 3
ref.Clone ref2
Check "referee Clone copies all but Rating", _
  ref2.Rating & "|" & ref2.Fouls & "|" & ref2.Stoppage & "|" & ref2.Judgement & "|" & ref2.ActiveRetired & "|" & ref2.Era, "3|4|5|6|1|3"

' ---- CAnnouncer ----
Set ann = CreateObject("Korvat_Ringbook.CAnnouncer")
Check "announcer without names", ann.Name, " "
ann.FirstName = "Michael"
ann.LastName = "Buffer"
ann.Era = 4
Set ann2 = CreateObject("Korvat_Ringbook.CAnnouncer")
ann.Clone ann2
Check "announcer Clone", ann2.Name & "|" & ann2.Era, "Michael Buffer|4"

' ---- CCornerman ----
Set cm = CreateObject("Korvat_Ringbook.CCornerman")
cm.LastName = " Dundee "
Check "cornerman with last name only", cm.Name, "Dundee"
cm.NickName = "Angelo"
Check "nickname is not part of the name", cm.Name, "Dundee"
cm.CloseCuts = 8
cm.Discipline = 7
cm.Motivate = 6
cm.ReduceSwelling = 5
cm.Specialty = 2
cm.Strategy = 9
cm.TrainingOffense = 3
cm.TrainingDefense = 4
cm.TrainingAverage = 5
Set cm2 = CreateObject("Korvat_Ringbook.CCornerman")
cm.Clone cm2
Check "cornerman Clone", cm2.CloseCuts & "|" & cm2.Discipline & "|" & cm2.Motivate & "|" & cm2.ReduceSwelling & "|" & _
  cm2.Specialty & "|" & cm2.Strategy & "|" & cm2.TrainingOffense & "|" & cm2.TrainingDefense & "|" & _
  cm2.TrainingAverage & "|" & cm2.NickName, "8|7|6|5|2|9|3|4|5|Angelo"

' ---- CTitle ----
Set title = CreateObject("Korvat_Ringbook.CTitle")
title.Name = "World Heavyweight"
Set title2 = CreateObject("Korvat_Ringbook.CTitle")
title.Clone title2
Check "title Clone", title2.Name, "World Heavyweight"

' ---- CHistory ----
Set hist = CreateObject("Korvat_Ringbook.CHistory")
hist.Decision = "KO"
hist.Division = "Heavyweight"
hist.FightDate = DateSerial(1974, 10, 30)
hist.LastRound = 8
hist.Opponent = "Foreman"
hist.ScheduledRounds = 15
hist.WonLost = "W"
hist.Notes = "Kinshasa"
Check "history date is a Date", hist.FightDate, DateSerial(1974, 10, 30)
Set hist2 = CreateObject("Korvat_Ringbook.CHistory")
hist.Clone hist2
Check "history Clone", hist2.Opponent & "|" & hist2.LastRound & "|" & hist2.Notes & "|" & hist2.Decision, "Foreman|8|Kinshasa|KO"
On Error Resume Next
hist.Clone Nothing
CheckNoErr "history Clone into Nothing does nothing"
On Error GoTo 0

' ---- CFighter ----
Set f = CreateObject("Korvat_Ringbook.CFighter")
Check "new fighter: KoPct", f.KoPct, CSng(0)
Check "new fighter: Record", f.Record, "0 - 0 - 0"
Check "new fighter: Dirty", f.Dirty, False
Check "reading Kor makes the record dirty", f.Kor, 0
Check "... Dirty", f.Dirty, True
f.FirstName = "  Muhammad  "
f.LastName = "Ali"
f.NickName = "The Greatest"
Check "Name with nickname (argument left out)", f.Name, "Muhammad The Greatest Ali"
Check "Name(True) ignores the nickname", f.Name(True), "Muhammad Ali"
f.FirstName = String(40, "x")
Check "first name cut to 25 characters", f.FirstName, String(25, "x")
f.FirstName = "Muhammad"
f.Won = 3
f.Lost = 1
f.Draw = 0
f.Kos = 2
f.Tkos = 1
Check "KoPct", f.KoPct, CSng(0.75)
Check "WonLostPct", f.WonLostPct, CSng(0.75)
Check "Record", f.Record, "3 - 1 - 0"
f.TotalPl = 60
f.TotalPm = 40
CheckTrue "PunchAccuracy is 60 % of the ratio", Abs(f.PunchAccuracy - 0.36) < 0.000001
f.Tko = 0
Check "Tko floors at 1", f.Tko, 1
f.Cu = -3
Check "Cu floors at 0", f.Cu, 0
f.Cb2 = -0.5
Check "Cb2 floors at 0", f.Cb2, CSng(0)
f.Sex = 257
Check "Sex keeps the low byte", f.Sex, 1
f.TitleIDs = "|4|"
Check "HasTitles is always false", f.HasTitles, False
f.GroupID = "12"
Check "GroupID reads back as text", f.GroupID, "12"
f.Performance = "A+"
Check "Performance keeps any value", f.Performance, "A+"
On Error Resume Next
f.GroupID = "twelve"
CheckErr "GroupID from non-numeric text", 13, "Korvat_Ringbook", "Type mismatch"
On Error GoTo 0
Check "fighter without history", f.History Is Nothing, True
Set f.History = hist
Check "History is the same object", f.History Is hist, True
Set f2 = CreateObject("Korvat_Ringbook.CFighter")
f2.FirstName = "Joe"
f.Clone f2, 2
Check "Clone ersCareer leaves the name, copies Won", f2.FirstName & "|" & f2.Won, "Joe|3"
Check "Clone ersCareer gives a copy of the history", f2.History Is hist, False
Check "... with its values", f2.History.Opponent, "Foreman"
f.Clone f2
Check "Clone with the section left out copies the profile", f2.FirstName, "Muhammad"

' ---- Version ----
Set ver = CreateObject("Korvat_Ringbook.Version")
Check "Version", ver.Major & "." & ver.Minor & "." & ver.Revision, "1.0.83"

Finish
