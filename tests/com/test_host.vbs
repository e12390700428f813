' The host's own objects in place of the server's (CHostServices): settings,
' display texts, message sink and utility, each a script object called by
' member name; Nothing puts the server's default back.

Class MySettings
  Public Property Get DatabasePath()
    DatabasePath = "C:\ringbook\data\elsewhere.db"
  End Property
  Public Function OptionsFolder(Style)
    OptionsFolder = "C:\ringbook\data\"
  End Function
  Public Function OptionsFileName(Style)
    OptionsFileName = "host" & Style & ".rbo"
  End Function
End Class

Class MyTexts
  Public Function BiasText(Bias)
    BiasText = "bias#" & Bias
  End Function
  Public Function RefereeRatingText(Rating)
    RefereeRatingText = "rating#" & Rating
  End Function
  Public Function SpecialtyText(Specialty)
    SpecialtyText = "specialty#" & Specialty
  End Function
  Public Function EraText(Era)
    EraText = "era#" & Era
  End Function
End Class

Class MySink
  Public Shown
  Public Sub Show(Text)
    Shown = Shown & Text & ";"
  End Sub
End Class

Class MyUtility
  Public Replaced
  Public Function FileExists(Path)
    FileExists = gFso.FileExists(Path)
  End Function
  Public Function CheckPicturePath(Path)
    CheckPicturePath = True
  End Function
  Public Sub ReplaceFile(Target, Temporary)
    Replaced = Target & "<" & Temporary
    If gFso.FileExists(Target) Then gFso.DeleteFile Target
    gFso.MoveFile Temporary, Target
  End Sub
  Public Function IsEven(Value)
    IsEven = (Value Mod 2 = 0)
  End Function
  Public Function CollapseSeparators(Text, Separator)
    CollapseSeparators = Text
  End Function
  Public Function TrimSeparators(Text, Separator)
    TrimSeparators = Text
  End Function
  Public Function PrepareList(Control)
    Set PrepareList = Control
  End Function
End Class

Dim host, db, judges, j, sink, util, s, loc, locs, got

Set host = CreateObject("Korvat_Ringbook.CHostServices")
Set db = CreateObject("Korvat_Ringbook.CGameDatabase")

' ---- settings ----
Set host.Settings = New MySettings
Check "the host's settings name the database", db.DatabasePath, "C:\ringbook\data\elsewhere.db"
Set host.Settings = Nothing
Check "Nothing puts the server's settings back", db.DatabasePath, "C:\ringbook\data\world.db"

' ---- display texts, through a collection's list text ----
Set host.DisplayText = New MyTexts
Set judges = CreateObject("Korvat_Ringbook.NJudges")
Set j = CreateObject("Korvat_Ringbook.CJudge")
j.FirstName = "Host"
j.LastName = "Texts"
j.Bias = 4
j.Era = 2
judges.AddRecord j, False
CheckTrue "GetJudgesList uses the host's display texts", _
  InStr(judges.GetJudgesList, "Host Texts" & vbTab & "bias#4" & vbTab & "era#2" & vbCrLf) > 0
Set host.DisplayText = Nothing

' ---- message sink ----
Set sink = New MySink
Set host.MessageSink = sink
Set locs = CreateObject("Korvat_Ringbook.NLocations")
Set loc = CreateObject("Korvat_Ringbook.CLocation")
loc.ID = 77777
Set got = locs.UpdateRecord(loc)
Check "the host's sink got the message", sink.Shown, "Stop in NLocations.UpdateRecord;"
Set host.MessageSink = Nothing

' ---- utility: the commit of a save ----
Set util = New MyUtility
Set host.Utility = util
Set s = CreateObject("Korvat_Ringbook.CStream")
s.Filename = gDataDir & "host-commit.bin"
s.OpenStream True
s.WriteLng 5
s.CloseStream
Check "the host's utility committed the save", util.Replaced, _
  gDataDir & "host-commit.bin<" & gDataDir & "host-commit.bin.tmp"
CheckValue "... and the file holds the value", gFso.GetFile(gDataDir & "host-commit.bin").Size, 4
Set host.Utility = Nothing

On Error Resume Next
Set host.Dice = New MySink
CheckNoErr "any object can be handed in; its members are looked up when used"
Set host.Dice = Nothing
On Error GoTo 0

Finish
