' The record classes by ProgID: properties with their setter rules, Clone,
' optional arguments left out, and the errors a script sees.

Dim loc, loc2, grp, grp2, judge, judge2, ref, ref2, ann, ann2, cm, cm2, title, title2
Dim hist, hist2, f, f2, ver

' ---- CLocation ----
Set loc = CreateObject("Korvat_Ringbook.CLocation")
Check "location starts empty", loc.Name, ""
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
Check "SiteRating", loc.SiteRating, CLng(25)
Set loc2 = CreateObject("Korvat_Ringbook.CLocation")
loc.Clone loc2
Check "Clone copies the name parts", loc2.Name, "Alpha Gamma"
Check "Clone copies the ID", loc2.ID, CLng(41)
Check "Clone copies the price index", loc2.PriceIndex, CLng(70000)

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
Check "judge Clone: name", judge2.Name, "Ann Lee"
Check "judge Clone: bias", judge2.Bias, CLng(-3)
Check "judge Clone: era", judge2.Era, 1

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
Check "referee Clone leaves Rating", ref2.Rating, 3
Check "referee Clone copies Fouls", ref2.Fouls, 4
Check "referee Clone copies Stoppage", ref2.Stoppage, 5
Check "referee Clone copies Judgement", ref2.Judgement, 6
Check "referee Clone copies ActiveRetired", ref2.ActiveRetired, 1

' ---- CAnnouncer ----
Set ann = CreateObject("Korvat_Ringbook.CAnnouncer")
Check "announcer without names", ann.Name, " "
ann.FirstName = "Michael"
ann.LastName = "Buffer"
ann.Era = 4
Set ann2 = CreateObject("Korvat_Ringbook.CAnnouncer")
ann.Clone ann2
Check "announcer Clone", ann2.Name, "Michael Buffer"
Check "announcer Clone era", ann2.Era, 4

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
Check "cornerman Clone: CloseCuts", cm2.CloseCuts, 8
Check "cornerman Clone: Strategy", cm2.Strategy, 9
Check "cornerman Clone: NickName", cm2.NickName, "Angelo"
Check "cornerman Clone: TrainingAverage", cm2.TrainingAverage, 5

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
Check "history Clone: opponent", hist2.Opponent, "Foreman"
Check "history Clone: last round", hist2.LastRound, 8
Check "history Clone: notes", hist2.Notes, "Kinshasa"
On Error Resume Next
hist.Clone Nothing
CheckNoErr "history Clone into Nothing does nothing"
On Error GoTo 0

' ---- CFighter ----
Set f = CreateObject("Korvat_Ringbook.CFighter")
Check "new fighter: TotalBouts", f.TotalBouts, CLng(0)
Check "new fighter: KoPct", f.KoPct, CSng(0)
Check "new fighter: Record", f.Record, "0 - 0 - 0"
Check "new fighter: Dirty", f.Dirty, False
Check "new fighter: Name", f.Name, ""
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
Check "Clone ersCareer leaves the name", f2.FirstName, "Joe"
Check "Clone ersCareer copies Won", f2.Won, CLng(3)
Check "Clone ersCareer gives a copy of the history", f2.History Is hist, False
Check "... with its values", f2.History.Opponent, "Foreman"
f.Clone f2
Check "Clone with the section left out copies the profile", f2.FirstName, "Muhammad"

' ---- Version ----
Set ver = CreateObject("Korvat_Ringbook.Version")
Check "Version.Major", ver.Major, 1
Check "Version.Minor", ver.Minor, 0
Check "Version.Revision", ver.Revision, 83

Finish
