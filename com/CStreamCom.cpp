#include "Korvat_Ringbook.h"
#include "com/ComMembers.h"
#include "com/DispatchCaller.h"
#include "com/Environment.h"
#include "core/CStream.h"
#include "core/Error.h"

namespace ringbook::com {
namespace {

/// A host's persistable object (the members of the type library's IStream)
/// as the stream's ReadFile and WriteFile call it: by name, with the
/// position. The object reaches the stream through its own reference to
/// it. An error the object raises is posted to the thread's error state, as
/// every failure inside a stream operation is, and the operation goes on.
class HostStreamObject : public ringbook::IStream {
 public:
  explicit HostStreamObject(IDispatch* object) : caller_(object) {}

  void ReadObjectData(CStream&, int32_t position) override { Forward(L"ReadObjectData", position); }
  void SaveObjectData(CStream&, int32_t position) override { Forward(L"SaveObjectData", position); }

 private:
  void Forward(const wchar_t* member, int32_t position) {
    try {
      caller_.Call(member, {Variant(position)});
    } catch (const Error& e) {
      PostError(e.Number(), e.Source(), e.Description());
    }
  }

  DispatchCaller caller_;
};

/// Whether stream failures are raised to the caller: see StreamCall.
bool StreamErrorsRaise() {
  const std::wstring mode = EnvironmentVariable(L"RINGBOOK_STREAM_ERRORS");
  return mode.size() == 5 && _wcsicmp(mode.c_str(), L"raise") == 0;
}

/// The binary stream. Its operations never fail: a failure is posted to the
/// thread's error state and the operation returns normally, so a caller
/// (with or without `On Error Resume Next`) sees no error and reads zeros
/// and empty texts, exactly as the component's own classes do.
///
/// With the environment variable RINGBOOK_STREAM_ERRORS set to "raise"
/// (read at every call), a call that posted an error completes its work and
/// then fails with the posted error's number, source and description (for
/// example 0x80040202, "Stream:ReadLng", "EOF"), so that a script can see
/// what went wrong. A function's value is then not assigned by the script
/// engine. Each call starts from a clear error state in that mode.
class CStreamCom : public ComObject<CStreamCom, CStream, _CStream> {
 public:
  using ComObject::ComObject;

  HRESULT STDMETHODCALLTYPE CloseStream() override {
    return StreamCall([&] { native().CloseStream(); });
  }
  HRESULT STDMETHODCALLTYPE get_Filename(BSTR* out) override {
    return Get(out, [&] { return native().Filename(); });
  }
  HRESULT STDMETHODCALLTYPE put_Filename(BSTR value) override {
    return StreamCall([&] { native().SetFilename(In(value)); });
  }
  HRESULT STDMETHODCALLTYPE OpenStream(VARIANT_BOOL overwrite) override {
    return StreamCall([&] { native().OpenStream(overwrite != VARIANT_FALSE); });
  }
  HRESULT STDMETHODCALLTYPE ReadFile(IDispatch* obj, LONG position) override {
    return StreamCall([&] {
      if (!obj) throw Error::ObjectNotSet();
      HostStreamObject host(obj);
      native().ReadFile(host, position);
    });
  }
  HRESULT STDMETHODCALLTYPE ReadBln(VARIANT_BOOL* out) override {
    return StreamGet(out, [&] { return native().ReadBln(); });
  }
  HRESULT STDMETHODCALLTYPE ReadByte(unsigned char* out) override {
    return StreamGet(out, [&] { return native().ReadByte(); });
  }
  HRESULT STDMETHODCALLTYPE ReadDate(DATE* out) override {
    return StreamGet(out, [&] { return native().ReadDate(); });
  }
  HRESULT STDMETHODCALLTYPE ReadInt(short* out) override {
    return StreamGet(out, [&] { return native().ReadInt(); });
  }
  HRESULT STDMETHODCALLTYPE ReadLng(LONG* out) override {
    return StreamGet(out, [&] { return native().ReadLng(); });
  }
  HRESULT STDMETHODCALLTYPE ReadSng(float* out) override {
    return StreamGet(out, [&] { return native().ReadSng(); });
  }
  HRESULT STDMETHODCALLTYPE ReadStr(LONG fixed_length, BSTR* out) override {
    return StreamGet(out, [&] { return native().ReadStr(fixed_length); });
  }
  HRESULT STDMETHODCALLTYPE ReadVar(VARIANT* out) override {
    return StreamGet(out, [&] { return native().ReadVar(); });
  }
  HRESULT STDMETHODCALLTYPE get_SeekTo(LONG* out) override {
    return StreamGet(out, [&] { return native().SeekTo(); });
  }
  HRESULT STDMETHODCALLTYPE put_SeekTo(LONG value) override {
    return StreamCall([&] { native().SetSeekTo(value); });
  }
  HRESULT STDMETHODCALLTYPE WriteFile(IDispatch* obj, LONG position,
                                      VARIANT_BOOL overwrite) override {
    return StreamCall([&] {
      if (!obj) throw Error::ObjectNotSet();
      HostStreamObject host(obj);
      native().WriteFile(host, position, overwrite != VARIANT_FALSE);
    });
  }
  HRESULT STDMETHODCALLTYPE WriteBln(VARIANT_BOOL value) override {
    return StreamCall([&] { native().WriteBln(value != VARIANT_FALSE); });
  }
  HRESULT STDMETHODCALLTYPE WriteByte(unsigned char value) override {
    return StreamCall([&] { native().WriteByte(value); });
  }
  HRESULT STDMETHODCALLTYPE WriteDate(DATE value) override {
    return StreamCall([&] { native().WriteDate(value); });
  }
  HRESULT STDMETHODCALLTYPE WriteInt(short value) override {
    return StreamCall([&] { native().WriteInt(value); });
  }
  HRESULT STDMETHODCALLTYPE WriteLng(LONG value) override {
    return StreamCall([&] { native().WriteLng(value); });
  }
  HRESULT STDMETHODCALLTYPE WriteSng(float value) override {
    return StreamCall([&] { native().WriteSng(value); });
  }
  HRESULT STDMETHODCALLTYPE WriteStr(BSTR value, LONG fixed_length) override {
    return StreamCall([&] { native().WriteStr(In(value), fixed_length); });
  }
  HRESULT STDMETHODCALLTYPE WriteVar(VARIANT value) override {
    return StreamCall([&] { native().WriteVar(In(value)); });
  }

 private:
  template <class F>
  HRESULT StreamCall(F&& body) {
    const bool raise = StreamErrorsRaise();
    if (raise) ClearLastError();
    const HRESULT hr = Call(std::forward<F>(body));
    if (FAILED(hr) || !raise) return hr;
    const ErrorInfo& posted = LastError();
    if (posted.Number == 0) return S_OK;
    return ReportError(Error(posted.Number, posted.Source, posted.Description), IID__CStream);
  }
  template <class Out, class F>
  HRESULT StreamGet(Out* out, F&& f) {
    if (!out) return E_POINTER;
    return StreamCall([&] { Put(out, f()); });
  }
};

}  // namespace

RINGBOOK_COM_CLASS_ENTRY(CStream, CStreamCom);

}  // namespace ringbook::com
