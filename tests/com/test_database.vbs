' A new game database, filled through the collections, with list boxes of
' the script bound to them; IRecords-style errors; the message sink's log
' (RINGBOOK_MESSAGE_LOG, set by the test runner) instead of message boxes.

' A grid: the list members and ItemTag besides, so not a list box. It keeps
' its rows in a ListBox of the prelude.
Class Grid
  Private mList

  Private Sub Class_Initialize()
    Set mList = New ListBox
  End Sub

  Public Sub Clear()
    mList.Clear
  End Sub
  Public Sub AddItem(Text, Index)
    mList.AddItem Text, Index
  End Sub
  Public Property Get NewIndex()
    NewIndex = mList.NewIndex
  End Property
  Public Property Get ItemData(Index)
    ItemData = mList.ItemData(Index)
  End Property
  Public Property Let ItemData(Index, Value)
    mList.ItemData(Index) = Value
  End Property
  Public Property Get ItemTag(Index)
    ItemTag = Empty
  End Property
  Public Property Let ItemTag(Index, Value)
  End Property
  Public Property Get ListCount()
    ListCount = mList.ListCount
  End Property
  Public Property Get ListIndex()
    ListIndex = mList.ListIndex
  End Property
  Public Property Let ListIndex(Value)
    mList.ListIndex = Value
  End Property
  Public Property Get Selected(Index)
    Selected = mList.Selected(Index)
  End Property
  Public Property Let Selected(Index, Value)
    mList.Selected(Index) = Value
  End Property
  Public Sub RemoveItem(Index)
    mList.RemoveItem Index
  End Sub
  Public Sub Refresh()
  End Sub
  Public Function Text()
    Text = mList.Text()
  End Function
End Class

Function NewLocation(arena, city, era, site)
  Dim l
  Set l = CreateObject("Korvat_Ringbook.CLocation")
  l.Arena = arena
  l.City = city
  l.Country = "USA"
  l.Era = era
  l.SiteRating = site
  l.PriceIndex = 10
  Set NewLocation = l
End Function

Function LogText()
  Dim path
  path = "C:\ringbook\results\messages.log"
  If gFso.FileExists(path) Then
    LogText = gFso.OpenTextFile(path).ReadAll
  Else
    LogText = ""
  End If
End Function

Dim db, locs, lst, a, b, c, d, got, judges, j, titles, t, arr, groups, g, grid, i, names, lines

' ---- create ----
Set db = CreateObject("Korvat_Ringbook.CGameDatabase")
Check "the database path comes from RINGBOOK_DB", db.DatabasePath, "C:\ringbook\data\world.db"
db.Create db.DatabasePath
CheckTrue "Create wrote the file", gFso.FileExists(db.DatabasePath)
On Error Resume Next
db.Create db.DatabasePath
CheckValue "Create never writes over a file", Err.Number, 3204
Err.Clear
On Error GoTo 0

' ---- locations with a bound list box ----
Set locs = CreateObject("Korvat_Ringbook.NLocations")
Set lst = New ListBox
locs.BindTo lst
Set a = locs.AddRecord(NewLocation("Garden", "New York", 2, 20))
CheckTrue "AddRecord gives the record its ID", a.ID > 0
Set b = NewLocation("Arena B", "Boston", 2, 30)
Set got = locs.AddRecord(b, False)
Check "AddRecord returns the same object", got Is b, True
Set c = locs.AddRecord(NewLocation("Coliseum", "Chicago", 1, 10))
Check "the bound list box follows the adds of its era and the others", lst.ListCount, 3
CheckTrue "the list shows the composed names", InStr(lst.Text(), "Garden, New York USA") > 0

lst.Clear
locs.FillList lst, 2, 25
Check "FillList with Filter 2 and SiteFilter 25", lst.Text(), "Garden"
Check "... ItemData is the ID", lst.DataText(), CStr(a.ID)
locs.FillList lst, 2
Check "FillList with SiteFilter left out (1000)", lst.ListCount, 2
lines = Split(locs.GetLocationList, vbCrLf)
CheckValue "GetLocationList has a line per row and a closing CR LF", UBound(lines), 3
CheckTrue "... tab-separated", InStr(locs.GetLocationList, "Garden" & vbTab & "New York" & vbTab & "USA" & vbTab & "10" & vbTab & "20" & vbCrLf) > 0

Set d = locs.Item(c.ID)
Check "Item by ID", d.Arena, "Coliseum"
d.Arena = "Colosseum"
Set got = locs.UpdateRecord(d)
Check "UpdateRecord returns the record", got Is d, True
Check "... and the row changed", locs.Item(c.ID).Arena, "Colosseum"
Check "RemoveRecord always returns False", locs.RemoveRecord(b.ID), False
lines = Split(locs.GetLocationList, vbCrLf)
CheckValue "... but the row is gone", UBound(lines), 2

Set d = NewLocation("Nowhere", "", 2, 1)
d.ID = 99999
Set got = locs.UpdateRecord(d)
Check "UpdateRecord of a missing row returns Nothing", got Is Nothing, True
CheckTrue "... and its message went to the log, not a message box", _
  InStr(LogText(), "Stop in NLocations.UpdateRecord") > 0

Set grid = New Grid
On Error Resume Next
locs.BindTo grid
CheckErr "NLocations binds list boxes only", 13, "Korvat_Ringbook", "Type mismatch"
On Error GoTo 0

' ---- a collection handed the wrong record ----
Set judges = CreateObject("Korvat_Ringbook.NJudges")
On Error Resume Next
Set got = judges.AddRecord(a)
CheckErr "NJudges.AddRecord of a location", 13, "Korvat_Ringbook", "Type mismatch"
On Error GoTo 0
Set j = CreateObject("Korvat_Ringbook.CJudge")
j.FirstName = "Harold"
j.LastName = "Lederman"
j.Bias = 2
judges.AddRecord j
Check "a judge stored", judges.Item(j.ID).Name, "Harold Lederman"
CheckTrue "GetJudgesList names the judge", InStr(judges.GetJudgesList, "Harold Lederman" & vbTab) = 1

' ---- groups bind any control by member name ----
Set groups = CreateObject("Korvat_Ringbook.NGroups")
Set grid = New Grid
groups.BindTo grid
Set g = CreateObject("Korvat_Ringbook.CGroup")
g.Name = "Contenders"
groups.AddRecord g
Check "NGroups drives a control that is not a list box", grid.Text(), "Contenders"
Check "GetGroupList", groups.GetGroupList, "Contenders" & vbCrLf

' ---- titles into an array of the script ----
Set titles = CreateObject("Korvat_Ringbook.NTitles")
arr = "untouched"
titles.FillArray arr
Check "FillArray without titles leaves the variable", arr, "untouched"
For Each names In Array("World", "European", "National")
  Set t = CreateObject("Korvat_Ringbook.CTitle")
  t.Name = names
  titles.AddRecord t, False
Next
titles.FillArray arr
CheckValue "FillArray rows from 1", LBound(arr, 1), 1
CheckValue "... to the count", UBound(arr, 1), 3
CheckValue "... columns 0 to 1", UBound(arr, 2), 1
Check "... names in column 0, in the query's order (by name)", arr(1, 0) & "|" & arr(2, 0) & "|" & arr(3, 0), "European|National|World"
CheckTrue "... IDs in column 1", arr(1, 1) > 0

' ---- the other collections open and take their records ----
Dim refs, r, anns, an, corner, cm
Set refs = CreateObject("Korvat_Ringbook.NReferees")
Set r = CreateObject("Korvat_Ringbook.CReferee")
r.FirstName = "Mills"
r.LastName = "Lane"
refs.AddRecord r
Check "a referee stored", refs.Item(r.ID).LastName, "Lane"
Set anns = CreateObject("Korvat_Ringbook.NAnnouncers")
Set an = CreateObject("Korvat_Ringbook.CAnnouncer")
an.LastName = "Buffer"
anns.AddRecord an
Check "an announcer stored", anns.Item(an.ID).LastName, "Buffer"
Set corner = CreateObject("Korvat_Ringbook.NCornermen")
Set cm = CreateObject("Korvat_Ringbook.CCornerman")
cm.LastName = "Dundee"
cm.Strategy = 9
corner.AddRecord cm
Check "a cornerman stored", corner.Item(cm.ID).Strategy, 9
Check "an unknown cornerman is a new one", corner.Item(424242).ID, CLng(0)

Finish
