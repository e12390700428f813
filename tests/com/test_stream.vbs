' The binary stream: values written and read back, positions, the safe
' overwrite, host objects read and saved through ReadFile/WriteFile, and
' how failures show: not at all by default, as the posted error's number,
' source and description with RINGBOOK_STREAM_ERRORS=raise.

Dim gStream

' A persistable object of the script: IStream's two members, reaching the
' stream through its own reference to it.
Class Persist
  Public Name
  Public Count
  Public Calls
  Public LastPosition
  Public FailWith

  Private Sub Class_Initialize()
    Calls = ""
    FailWith = 0
  End Sub

  Public Sub SaveObjectData(Position)
    Calls = Calls & "S"
    LastPosition = Position
    gStream.WriteStr Name
    gStream.WriteLng Count
  End Sub

  Public Sub ReadObjectData(Position)
    Calls = Calls & "R"
    LastPosition = Position
    If FailWith <> 0 Then Err.Raise FailWith, "Persist.ReadObjectData", "cannot read"
    Name = gStream.ReadStr
    Count = gStream.ReadLng
  End Sub
End Class

Dim path, s, v, p, q, shell, env
path = gDataDir & "values.bin"
Set s = CreateObject("Korvat_Ringbook.CStream")
Set gStream = s

' ---- names ----
s.Filename = path
Check "Filename", s.Filename, path

' ---- every primitive, through the temporary file ----
s.OpenStream True
Check "SeekTo after opening", s.SeekTo, CLng(1)
s.WriteLng 123456
Check "SeekTo after a Long", s.SeekTo, CLng(5)
s.WriteBln True
s.WriteByte 200
s.WriteDate DateSerial(2001, 2, 3)
s.WriteInt -7
s.WriteSng 1.5
s.WriteStr "Ali"
s.WriteStr "abc", 5
s.WriteVar "text"
s.WriteVar 42
CheckTrue "the target is not written before CloseStream", Not gFso.FileExists(path)
s.CloseStream
CheckTrue "CloseStream commits the target", gFso.FileExists(path)
CheckTrue "... and leaves no temporary file", Not gFso.FileExists(path & ".tmp")
CheckValue "file size: the values and nothing else", gFso.GetFile(path).Size, 4 + 2 + 1 + 8 + 2 + 4 + 7 + 5 + 8 + 4

s.OpenStream
Check "ReadLng", s.ReadLng, CLng(123456)
Check "ReadBln", s.ReadBln, True
Check "ReadByte", s.ReadByte, CByte(200)
Check "ReadDate", s.ReadDate, DateSerial(2001, 2, 3)
Check "ReadInt", s.ReadInt, -7
Check "ReadSng", s.ReadSng, CSng(1.5)
Check "ReadStr with the length left out", s.ReadStr, "Ali"
Check "ReadStr fixed length keeps the padding", s.ReadStr(5), "abc  "
Check "ReadVar text", s.ReadVar, "text"
Check "ReadVar number", s.ReadVar, 42
Check "SeekTo at the end", s.SeekTo, CLng(46)
s.SeekTo = 1
Check "SeekTo moves back", s.ReadLng, CLng(123456)

' ---- failures are posted, not raised ----
s.SeekTo = 45
On Error Resume Next
v = s.ReadLng
CheckNoErr "ReadLng past the end raises nothing"
On Error GoTo 0
Check "... and reads 0", v, CLng(0)
s.CloseStream

' ---- a script object through WriteFile and ReadFile ----
Set p = New Persist
p.Name = "Frazier"
p.Count = 3
s.Filename = gDataDir & "persist.bin"
s.WriteFile p, 9, True
Check "WriteFile called SaveObjectData with the position", p.Calls & p.LastPosition, "S9"
Set q = New Persist
s.ReadFile q
Check "ReadFile called ReadObjectData with the position left out as 0", q.Calls & q.LastPosition, "R0"
Check "... which read the name and the count", q.Name & "|" & q.Count, "Frazier|3"
Set q = New Persist
s.Filename = gDataDir & "missing.bin"
s.ReadFile q
Check "ReadFile of a missing file calls nothing", q.Calls, ""
q.FailWith = 1234
s.Filename = gDataDir & "persist.bin"
On Error Resume Next
s.ReadFile q
CheckNoErr "an error of the host object is posted, not raised"
s.Filename = gDataDir & "no such folder\x.bin"
s.OpenStream
CheckNoErr "a failed open raises nothing"
s.WriteLng 1
CheckNoErr "nor do the writes after it"
On Error GoTo 0

Finish
