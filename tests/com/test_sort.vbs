' The sort helper and the keyed collection: modes and orders, the helper's
' own errors, error 511 of a sorted collection, script objects as sorted
' items, and FillList into a list box written in this script.

' A sorted item of the script: the sort key is what the helper compares.
Class Entry
  Public SortKey
End Class

Function NewEntry(key)
  Dim e
  Set e = New Entry
  e.SortKey = key
  Set NewEntry = e
End Function

Dim h, c, a, b, lst, i, keys, v

' ---- the helper's modes and orders ----
Set h = CreateObject("Korvat_Ringbook.CSortHelper")
Check "SortMode starts as text compare", h.SortMode, CLng(1)
Check "SortOrder starts ascending", h.SortOrder, CLng(0)
h.SortMode = 7
Check "SortMode 7 reads back 0", h.SortMode, CLng(0)
h.SortOrder = 1
Check "SortOrder 1 reads back 0", h.SortOrder, CLng(0)
h.SortMode = 1
Check "text compare ignores case", h.Compare(NewEntry("abc"), NewEntry("ABC")), CLng(0)
Check "text compare orders", h.Compare(NewEntry("abc"), NewEntry("abd")), CLng(-1)
h.SortOrder = -1
Check "descending negates", h.Compare(NewEntry("abc"), NewEntry("abd")), CLng(1)
h.SortOrder = 0
h.SortMode = 3
Check "length compare: one digit before two", h.Compare(NewEntry("9"), NewEntry("10")), CLng(-1)
h.SortMode = 1
Check "a numeric key", h.Compare(NewEntry(5), NewEntry(7)), CLng(-1)
Check "... switches the helper to value compare for good", h.SortMode, CLng(0)

a = "first"
b = 2
h.Swap a, b
Check "Swap exchanges the script's variables", a & "|" & b, "2|first"

On Error Resume Next
v = h.Compare("x", "y")
CheckErr "Compare of values that are no sorted objects is a type mismatch from the runtime's source", 13, "Korvat_Ringbook.Runtime", "Type mismatch"
On Error GoTo 0

' ---- the keyed collection ----
Set c = CreateObject("Korvat_Ringbook.CKeyedCollection")
c.Add "one", "k1"
c.Add "two", "k2"
c.Add "three"
Check "Count", c.Count, CLng(3)
Check "Item by key, any case", c.Item("K2"), "two"
Check "Item by position", c.Item(3), "three"
Check "Index of a key", c.Index("k1"), CLng(1)
Check "Key of a position, and of an item without one", c.Key(2) & "|" & c.Key(3), "k2|"
Check "LastAdded", c.LastAdded, "three"

On Error Resume Next
h.SwapCollection c, 1, 2, "x"
CheckErr "SwapCollection with one key", 13221, "Korvat_Ringbook.SortHelper", "SwapCollection: Key is missing"
On Error GoTo 0
Check "... changed nothing", c.Item(1), "one"
h.SwapCollection c, 1, 2
Check "SwapCollection without keys exchanges the items", c.Item(1), "two"
Check "... each keeping its key", c.Key(1), "k2"

Check "errors are recorded, not raised, at first", c.mgRaiseErrors, False
v = c.Item("nokey")
Check "a missing key reads Empty", IsEmpty(v), True
Check "... and is recorded in mgErr", c.mgErr, 5
Check "... with its text", c.mgErrDescription, "Invalid procedure call or argument"
c.mgRaiseErrors = True
On Error Resume Next
v = c.Item("nokey")
CheckErr "with mgRaiseErrors the error is raised", 5, "Korvat_Ringbook", "Invalid procedure call or argument"
c.Add "dup", "k1"
CheckErr "a duplicate key", 457, "Korvat_Ringbook", "This key is already associated with an element of this collection"
c.Sorted = True
CheckErr "Sorted on a collection that holds items", 511, "Korvat_Ringbook", "Sorted property is read-only if the collection is not empty"
On Error GoTo 0
Check "... keeps its value", c.Sorted, False

' ---- a sorted collection of script objects ----
c.Clear
c.Sorted = True
Check "Sorted accepted on an empty collection", c.Sorted, True
Dim fig
Set fig = NewEntry("fig")
c.Add NewEntry("pear")
c.Add NewEntry("Apple")
c.Add fig
c.Add NewEntry("banana")
Check "items kept in order", c.Item(1).SortKey & "|" & c.Item(4).SortKey, "Apple|pear"
Check "the item is the script's own object", c.Item(3) Is fig, True
On Error Resume Next
c.Add "plain text"
CheckErr "a sorted collection takes only sorted objects", 13, "Korvat_Ringbook", "Type mismatch"
On Error GoTo 0
c.SortHelper.SortOrder = -1
Check "the collection's helper is shared", c.SortHelper.SortOrder, CLng(-1)
c.SortHelper.SortOrder = 0

' ---- FillList into the script's list box ----
Set lst = New ListBox
lst.AddItem "stale", 0
c.FillList lst
Check "FillList cleared the list first", Left(lst.Log, 2), "AC"
Check "FillList added every item's text in order", lst.Text(), "Apple|banana|fig|pear"
c.FillList
Check "FillList without a control changes nothing", lst.ListCount, 4

Finish
