' Shared start of every COM test script (scripts/com-tests.sh puts it in
' front of each tests/com/test_*.vbs). The result file, the script's first
' argument, gets one line per check ("ok ..." or "FAIL ...") and ends with
' "DONE failures=N" when the script ran to its end.
Option Explicit

Dim gFso
Dim gOut
Dim gFailures
Dim gDataDir
' The source of the errors the script engine raises itself (a conversion
' the type library asks for, an unknown member, a class it cannot create).
Const VBS = "Microsoft VBScript runtime error"
Set gFso = CreateObject("Scripting.FileSystemObject")
Set gOut = gFso.CreateTextFile(WScript.Arguments(0), True)
gFailures = 0
gDataDir = "C:\ringbook\data\"

Function Show(value)
  If IsObject(value) Then
    If value Is Nothing Then
      Show = "Nothing"
    Else
      Show = "<" & TypeName(value) & ">"
    End If
  ElseIf IsNull(value) Then
    Show = "Null"
  ElseIf IsEmpty(value) Then
    Show = "Empty"
  Else
    Show = TypeName(value) & " " & CStr(value)
  End If
End Function

Sub Pass(name)
  gOut.WriteLine "ok " & name
End Sub

Sub Fail(name, detail)
  gFailures = gFailures + 1
  gOut.WriteLine "FAIL " & name & ": " & detail
End Sub

' Same value and same kind (Integer and Long differ: the type library
' decides what a script gets).
Sub Check(name, actual, expected)
  If IsObject(actual) Or IsObject(expected) Then
    Fail name, "object compared as a value"
  ElseIf VarType(actual) <> VarType(expected) Then
    Fail name, "got " & Show(actual) & ", expected " & Show(expected)
  ElseIf actual <> expected Then
    Fail name, "got " & Show(actual) & ", expected " & Show(expected)
  Else
    Pass name
  End If
End Sub

' Same value, whatever numeric kind.
Sub CheckValue(name, actual, expected)
  If actual = expected Then
    Pass name
  Else
    Fail name, "got " & Show(actual) & ", expected " & Show(expected)
  End If
End Sub

Sub CheckTrue(name, condition)
  If condition Then
    Pass name
  Else
    Fail name, "condition is false"
  End If
End Sub

' The error of the statement before (under On Error Resume Next): number,
' source and description exactly; then clears it.
Sub CheckErr(name, number, source, description)
  If Err.Number <> number Or Err.Source <> source Or Err.Description <> description Then
    Fail name, "got Err " & Err.Number & " """ & Err.Source & """ """ & Err.Description & _
      """, expected " & number & " """ & source & """ """ & description & """"
  Else
    Pass name
  End If
  Err.Clear
End Sub

Sub CheckNoErr(name)
  If Err.Number <> 0 Then
    Fail name, "unexpected Err " & Err.Number & " """ & Err.Source & """ """ & Err.Description & """"
  Else
    Pass name
  End If
  Err.Clear
End Sub

Sub Finish()
  gOut.WriteLine "DONE failures=" & gFailures
  gOut.Close
End Sub

' A list box as a host's form would have one: the members the component
' calls by name (and no type information: it counts as a list box because
' it has ItemData and no ItemTag).
Class ListBox
  Public Items
  Public Datas
  Public ListCount
  Public NewIndex
  Public ListIndex
  Public Font
  Public Log

  Private Sub Class_Initialize()
    ReDim Items(-1)
    ReDim Datas(-1)
    ListCount = 0
    NewIndex = -1
    ListIndex = -1
    Set Font = New FontObject
    Log = ""
  End Sub

  Public Sub Clear()
    ReDim Items(-1)
    ReDim Datas(-1)
    ListCount = 0
    NewIndex = -1
    Log = Log & "C"
  End Sub

  Public Sub AddItem(Text, Index)
    Dim i
    If IsEmpty(Index) Or IsMissingArg(Index) Then Index = ListCount
    ReDim Preserve Items(ListCount)
    ReDim Preserve Datas(ListCount)
    For i = ListCount To Index + 1 Step -1
      Items(i) = Items(i - 1)
      Datas(i) = Datas(i - 1)
    Next
    Items(Index) = Text
    Datas(Index) = 0
    ListCount = ListCount + 1
    NewIndex = Index
    Log = Log & "A"
  End Sub

  Public Property Get ItemData(Index)
    ItemData = Datas(Index)
  End Property

  Public Property Let ItemData(Index, Value)
    Datas(Index) = Value
  End Property

  Public Sub RemoveItem(Index)
    Dim i
    For i = Index To ListCount - 2
      Items(i) = Items(i + 1)
      Datas(i) = Datas(i + 1)
    Next
    ListCount = ListCount - 1
    If ListCount > 0 Then
      ReDim Preserve Items(ListCount - 1)
      ReDim Preserve Datas(ListCount - 1)
    Else
      ReDim Items(-1)
      ReDim Datas(-1)
    End If
  End Sub

  Public Sub Refresh()
    Log = Log & "R"
  End Sub

  Public Property Get Selected(Index)
    Selected = (Index = ListIndex)
  End Property

  Public Property Let Selected(Index, Value)
    If Value Then ListIndex = Index
  End Property

  ' The ItemData of the items joined by "|".
  Public Function DataText()
    Dim i
    DataText = ""
    For i = 0 To ListCount - 1
      If i > 0 Then DataText = DataText & "|"
      DataText = DataText & Datas(i)
    Next
  End Function

  ' The items joined by "|" (Wine's script engine has no Join).
  Public Function Text()
    Dim i
    Text = ""
    For i = 0 To ListCount - 1
      If i > 0 Then Text = Text & "|"
      Text = Text & Items(i)
    Next
  End Function
End Class

Class FontObject
  Public Bold
End Class

Function IsMissingArg(value)
  IsMissingArg = (VarType(value) = vbError)
End Function

' ---- the test ----
