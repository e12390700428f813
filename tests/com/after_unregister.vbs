' Run after regsvr32 /u: no class can be created any more.

Dim progId, obj
For Each progId In Array("CLocation", "CFighter", "CStream", "CSortHelper", "Version")
  On Error Resume Next
  Set obj = CreateObject("Korvat_Ringbook." & progId)
  CheckErr "CreateObject Korvat_Ringbook." & progId & " after unregistering", 429, VBS, _
    "ActiveX component can't create object"
  On Error GoTo 0
Next

Finish
