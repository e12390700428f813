' The fighter collection over the game database test_database.vbs made:
' fighters added to a bound list box, a fight history saved with the
' career section and read back as text and as a recordset, rankings, and a
' fighter's titles listed into a list box.

Function NewFighter(first, last, rating)
  Dim f
  Set f = CreateObject("Korvat_Ringbook.CFighter")
  f.FirstName = first
  f.LastName = last
  f.Rating = rating
  f.GroupID = "1"
  f.Division = 1
  Set NewFighter = f
End Function

Dim fighters, lst, ali, frazier, h, text, rs, rows, titles, t, titleId, tl, f2

Set fighters = CreateObject("Korvat_Ringbook.NFighters")
Set lst = New ListBox
fighters.BindTo lst
Set ali = fighters.AddRecord(NewFighter("Muhammad", "Ali", 7))
Set frazier = fighters.AddRecord(NewFighter("Joe", "Frazier", 12), False)
CheckTrue "AddRecord gives IDs", ali.ID > 0 And frazier.ID > ali.ID
Check "the bound list box follows the adds", lst.ListCount, 2

fighters.FillList lst, 1, 1, True
Check "FillList with ShowRating: one line per fighter", lst.ListCount, 2
CheckTrue "... the rating behind a tab, padded", InStr(lst.Text(), "Muhammad Ali" & vbTab & "  7") > 0
CheckTrue "... ItemData holds the IDs", InStr("|" & lst.DataText() & "|", "|" & ali.ID & "|") > 0
fighters.FillList
Check "FillList with everything left out lists group 1, division 0: none here", lst.ListCount, 0

' ---- a fight's history, saved with the career section ----
Set h = CreateObject("Korvat_Ringbook.CHistory")
h.Division = "Heavyweight"
h.FightDate = DateSerial(1971, 3, 8)
h.Opponent = "Joe Frazier"
h.WonLost = "L"
h.Decision = "UD"
h.LastRound = 15
h.ScheduledRounds = 15
h.Notes = "Fight of the Century"
ali.Lost = 1
Set ali.History = h
Set f2 = fighters.UpdatePartialRecord(ali, 2)
Check "UpdatePartialRecord hands back no object", f2 Is Nothing, True
text = fighters.GetHistoryList(ali.ID)
rows = Split(text, vbCrLf)
CheckValue "one history line and a closing CR LF", UBound(rows), 1
Check "... beginning with a tab", Left(rows(0), 1), vbTab
CheckTrue "... holding the opponent", InStr(rows(0), vbTab & "Joe Frazier" & vbTab) > 0
Check "the career total was written", fighters.Item(ali.ID).Lost, CLng(1)

Set rs = fighters.HistoriesRS(ali.ID)
CheckTrue "HistoriesRS has the row", rs.RecordCount > 0
rs.MoveFirst
Check "... read by field name", rs.Fields("Opponent"), "Joe Frazier"
Check "... and as the default member", rs("Decision"), "UD"
rs.MoveNext
Check "... one row only", rs.EOF, True
Check "RemoveFightHistories always returns False", fighters.RemoveFightHistories(ali.ID), False
Check "... but the rows are gone", fighters.GetHistoryList(ali.ID), ""

' ---- rankings ----
text = fighters.GetRankingList(1, 1)
CheckTrue "GetRankingList with the order left out names both", _
  InStr(text, "Muhammad Ali") > 0 And InStr(text, "Joe Frazier") > 0
Set rs = fighters.RankingsRS
Check "RankingsRS with every argument left out opens", TypeName(rs), "_Recordset"

' ---- a fighter's titles into a list box ----
Set lst = New ListBox
ali.FillListWithTitles lst
Check "without titles: one item None", lst.Text(), "None"
Check "... and the font not bold", lst.Font.Bold, False
Set titles = CreateObject("Korvat_Ringbook.NTitles")
Set t = CreateObject("Korvat_Ringbook.CTitle")
t.Name = "Undisputed"
titles.AddRecord t, False
ali.TitleIDs = "|" & t.ID & "|"
ali.FillListWithTitles lst
Check "the fighter's title listed, tagged with its ID", lst.Text() & "|" & lst.DataText(), "Undisputed|" & t.ID
Check "... in bold", lst.Font.Bold, True

' ---- the wrong record ----
On Error Resume Next
Set f2 = fighters.AddRecord(t)
CheckErr "NFighters.AddRecord of a title", 13, "Korvat_Ringbook", "Type mismatch"
On Error GoTo 0

Finish
