// The COM classes of the server: one line per class, naming its coclass of
// Korvat_Ringbook.idl. The class's file defines it with
// RINGBOOK_COM_CLASS_ENTRY(Name, Wrapper). Registration registers the
// type library's creatable coclasses and requires each to be listed here.
// (No include guard: the includer defines RINGBOOK_COM_CLASS.)
RINGBOOK_COM_CLASS(CStream)
RINGBOOK_COM_CLASS(CLocation)
RINGBOOK_COM_CLASS(CGroup)
RINGBOOK_COM_CLASS(CJudge)
RINGBOOK_COM_CLASS(CReferee)
RINGBOOK_COM_CLASS(CAnnouncer)
RINGBOOK_COM_CLASS(CCornerman)
RINGBOOK_COM_CLASS(CTitle)
RINGBOOK_COM_CLASS(CHistory)
RINGBOOK_COM_CLASS(CFighter)
RINGBOOK_COM_CLASS(CSortHelper)
RINGBOOK_COM_CLASS(CKeyedCollection)
RINGBOOK_COM_CLASS(Version)
