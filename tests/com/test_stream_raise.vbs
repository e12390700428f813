' env: RINGBOOK_STREAM_ERRORS=raise
' The binary stream with RINGBOOK_STREAM_ERRORS=raise (the test runner sets
' it from the line above): a call that posted an error fails with the
' posted number, source and description, after doing its work.

Dim gStream

' A persistable object that cannot read itself.
Class Failing
  Public Sub SaveObjectData(Position)
  End Sub

  Public Sub ReadObjectData(Position)
    Err.Raise 1234, "Failing.ReadObjectData", "cannot read"
  End Sub
End Class

Dim path, s, v, q
path = gDataDir & "raise.bin"
Set s = CreateObject("Korvat_Ringbook.CStream")
Set gStream = s
s.Filename = path
s.OpenStream True
s.WriteLng 1
s.WriteStr "Ali"
s.WriteInt 2
s.CloseStream
Check "a clean save raises nothing", gFso.FileExists(path), True

s.OpenStream
s.SeekTo = 14
On Error Resume Next
v = s.ReadLng
CheckErr "ReadLng past the end", &H80040202, "Stream:ReadLng", "EOF"
v = s.ReadInt
CheckErr "ReadInt past the end", &H80040202, "Stream:ReadInt", "EOF"
v = s.ReadStr
CheckErr "ReadStr past the end", &H80040202, "Stream:ReadStr", "EOF"
v = s.ReadBln
CheckErr "ReadBln past the end", &H80040202, "Stream:ReadBln", "EOF"
s.SeekTo = 12
v = s.ReadInt
CheckErr "reading the last bytes exactly is no error", 0, "", ""
Check "... and reads them", v, 2
On Error GoTo 0
s.CloseStream

s.Filename = gDataDir & "no such folder\x.bin"
On Error Resume Next
s.OpenStream
Check "OpenStream of a bad path: number", Err.Number, &H80040201
Check "... source", Err.Source, "Stream:WriteFile"
Check "... description begins", Left(Err.Description, 20), "Error opening file: "
CheckTrue "... with the system's text", Len(Err.Description) > 20
Err.Clear
s.WriteLng 1
CheckErr "a write after the failed open", &H80040204, "Stream:WriteLng", "Write Error: "
On Error GoTo 0

Set q = New Failing
s.Filename = path
On Error Resume Next
s.ReadFile q
' The number passes on. (Wine's script engine hands back no texts of an
' error its objects raise, so the source and description are not checked.)
CheckValue "the host object's own error number", Err.Number, 1234
Err.Clear
On Error GoTo 0

Finish
