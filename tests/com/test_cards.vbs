' Bouts, fight cards, options and tournaments: built by a script, saved to
' their files and loaded back into new objects.

Dim b, b2, card, card2, loc, opts, t, t2, path, v

' ---- a bout ----
Set b = CreateObject("Korvat_Ringbook.CBout")
b.FighterFirstName(1) = "Muhammad"
b.FighterLastName(1) = "Ali"
b.FighterFirstName(2) = "George"
b.FighterLastName(2) = "Foreman"
b.Rating(1) = 90
b.DrawPower(1) = 5
b.Rating(2) = 92
b.DrawPower(2) = 5
b.FighterID(1) = 11
b.FighterID(2) = 22
Check "Description with every argument left out", b.Description, "Muhammad Ali vs George Foreman"
Check "Description ordered by odds, in three lines", b.Description(0, True, True), _
  "George Foreman" & vbCrLf & " vs " & vbCrLf & "Muhammad Ali"
Check "FighterName with the style left out", b.FighterName(1), "Muhammad Ali"
Check "TotalRating is a 16-bit value of any type", b.TotalRating(1), 95
Check "the favourite and the underdog", b.OddsFavorite & "/" & b.OddsUnderdog, "2/1"
b.Repeat = 3
Check "a bout has its options", TypeName(b.Options), "_COptions"
b.Options.Rounds = 7
Check "options rounds of a value not offered", b.Options.Rounds, 10
b.Options.Rounds = 12
Set b2 = CreateObject("Korvat_Ringbook.CBout")
b.Clone b2
Check "Clone with the fighters left out copies both", b2.FighterLastName(1) & "/" & b2.FighterLastName(2), "Ali/Foreman"
Set b2 = CreateObject("Korvat_Ringbook.CBout")
b.Clone b2, 1, 2
Check "Clone of fighter 1 into corner 2", b2.FighterLastName(2), "Ali"

' ---- options ----
Set opts = CreateObject("Korvat_Ringbook.COptions")
opts.HometownFavorite = 1
opts.DefendingChampion = 2
Check "a defending champion clears the hometown favourite", opts.HometownFavorite, 0
Check "Bias is the sum", opts.Bias, 2
opts.miHometownFavorite = 1
Check "... of the stored values", opts.Bias, 3
Set loc = CreateObject("Korvat_Ringbook.CLocation")
loc.Arena = "Stade du 20 Mai"
Set opts.Location = loc
Check "Location is the object set", opts.Location Is loc, True
opts.Judge(2).LastName = "Lederman"
Check "Judge(Index)", opts.Judge(2).LastName, "Lederman"
On Error Resume Next
Set opts.Referee = loc
CheckErr "a location as the referee", 13, "Korvat_Ringbook", "Type mismatch"
On Error GoTo 0

' ---- a fight card: save and load ----
Set card = CreateObject("Korvat_Ringbook.CFightCard")
card.Name = "Rumble in the Jungle"
card.Era = 3
card.FightDate = DateSerial(1974, 10, 30)
card.Location.Arena = "Stade du 20 Mai"
card.Location.City = "Kinshasa"
card.Add b, 1
Check "Add copies the bout into the card", card.Bout(1).FighterLastName(1), "Ali"
Check "... the card keeps its own object", card.Bout(1) Is b, False
Check "Item is Bout", card.Item(1) Is card.Bout(1), True
card.DisplayFight(1) = True
card.WagersPlaced = True
Check "FighterRating is rating plus draw power", card.FighterRating(1, 2), 97
CheckTrue "BoutRating and Rating of the card", card.BoutRating(1) > 0 And card.Rating > 0
Check "a position outside 1 to 4 has no bout", card.Bout(7) Is Nothing, True

path = gDataDir & "rumble.card"
card.SaveToFile path
CheckTrue "SaveToFile wrote the file", gFso.FileExists(path)
CheckTrue "... through a temporary file that is gone", Not gFso.FileExists(path & ".tmp")
Set card2 = CreateObject("Korvat_Ringbook.CFightCard")
card2.LoadFromFile path
Check "loaded: Name and Era", card2.Name & "|" & card2.Era, "Rumble in the Jungle|3"
Check "loaded: FightDate", card2.FightDate, DateSerial(1974, 10, 30)
Check "loaded: the location's record", card2.Location.Name, "Stade du 20 Mai, Kinshasa"
Check "loaded: bout 1 fighter names", card2.Bout(1).FighterName(1) & " vs " & card2.Bout(1).FighterName(2), _
  "Muhammad Ali vs George Foreman"
Check "loaded: bout 1 fighter IDs", card2.Bout(1).FighterID(2), CLng(22)
Check "loaded: bout 1 rating, repeat and rounds", card2.Bout(1).Rating(2) & "|" & card2.Bout(1).Repeat & "|" & _
  card2.Bout(1).Options.Rounds, "92|3|12"
Check "loaded: wagers are not saved", card2.WagersPlaced, False

card2.Remove 1
Check "Remove empties the position", card2.Bout(1) Is Nothing, True
On Error Resume Next
card2.Add loc, 2
CheckErr "Add of a location is a type mismatch", 13, "Korvat_Ringbook", "Type mismatch"
card2.Remove "one"
CheckErr "Remove of a text", 13, "Korvat_Ringbook", "Type mismatch"
On Error GoTo 0

' ---- a tournament: save and load ----
Set t = CreateObject("Korvat_Ringbook.CTournament")
t.Name = "Open"
t.Levels = 3
t.Levels = 9
Check "a level count outside 2 to 4 is ignored", t.Levels, 3
t.Level(1).Rounds = 6
t.Level(1).Bout(1).FighterLastName(1) = "Tyson"
t.Level(1).DisplayFight(1) = True
Check "Level(1) holds its bouts", t.Level(1).Bout(1).FighterLastName(1), "Tyson"
Check "Level beyond Levels", t.Level(4) Is Nothing, True
t.Options.Rounds = 8
path = gDataDir & "open.tournament"
t.SaveToFile path
CheckTrue "tournament saved", gFso.FileExists(path)
Set t2 = CreateObject("Korvat_Ringbook.CTournament")
t2.LoadFromFile path
Check "loaded: Name and Levels", t2.Name & "|" & t2.Levels, "Open|3"
Check "loaded: level rounds and brackets", t2.Level(1).Rounds & "|" & t2.Level(1).Brackets, "6|2"
Check "loaded: a bout of a level", t2.Level(1).Bout(1).FighterLastName(1), "Tyson"
Check "loaded: its display flag", t2.Level(1).DisplayFight(1), True
Check "loaded: the options", t2.Options.Rounds, 8

Finish
