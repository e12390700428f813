// The six adapters share one pattern (a DispatchCaller and one call per
// member) and nothing else uses them, so they live together here rather
// than in a file each.
#include "com/HostServiceAdapters.h"

#include "com/DispatchCaller.h"
#include "com/DispatchListControl.h"
#include "com/HostObject.h"

namespace ringbook::com {
namespace {

class SettingsAdapter : public ISettings {
 public:
  explicit SettingsAdapter(IDispatch* object) : host_(object) {}
  std::string DatabasePath() override { return host_.Get(L"DatabasePath").ToText(); }
  std::string OptionsFolder(int16_t style) override {
    return host_.Call(L"OptionsFolder", {Variant(style)}).ToText();
  }
  std::string OptionsFileName(int16_t style) override {
    return host_.Call(L"OptionsFileName", {Variant(style)}).ToText();
  }

 private:
  DispatchCaller host_;
};

class DiceAdapter : public IDice {
 public:
  explicit DiceAdapter(IDispatch* object) : host_(object) {}
  int32_t Roll(int32_t upper, int32_t lower) override {
    return host_.Call(L"Roll", {Variant(upper), Variant(lower)}).ToLong();
  }

 private:
  DispatchCaller host_;
};

class DisplayTextAdapter : public IDisplayText {
 public:
  explicit DisplayTextAdapter(IDispatch* object) : host_(object) {}
  std::string BiasText(int32_t bias) override { return Text(L"BiasText", Variant(bias)); }
  std::string RefereeRatingText(int16_t rating) override {
    return Text(L"RefereeRatingText", Variant(rating));
  }
  std::string SpecialtyText(int16_t specialty) override {
    return Text(L"SpecialtyText", Variant(specialty));
  }
  std::string EraText(int16_t era) override { return Text(L"EraText", Variant(era)); }

 private:
  std::string Text(const wchar_t* member, const Variant& value) {
    return host_.Call(member, {value}).ToText();
  }
  DispatchCaller host_;
};

class LookupAdapter : public ILookup {
 public:
  explicit LookupAdapter(IDispatch* object) : host_(object) {}
  ProficiencyBounds Proficiency(int16_t filter) override {
    ProficiencyBounds bounds;
    bounds.Low = host_.Call(L"LowProficiency", {Variant(filter)}).ToInteger();
    bounds.High = host_.Call(L"HighProficiency", {Variant(filter)}).ToInteger();
    return bounds;
  }
  std::string Text(int32_t category, int32_t code) override {
    return host_.Call(L"Text", {Variant(category), Variant(code)}).ToText();
  }

 private:
  DispatchCaller host_;
};

class UtilityAdapter : public IUtility {
 public:
  explicit UtilityAdapter(IDispatch* object) : host_(object) {}
  bool FileExists(const std::string& path) override {
    return host_.Call(L"FileExists", {Variant(path)}).ToBool();
  }
  // The host answers whether the picture can be used; it cannot rewrite
  // the path through a call by name.
  bool CheckPicturePath(std::string& path) override {
    return host_.Call(L"CheckPicturePath", {Variant(path)}).ToBool();
  }
  void ReplaceFile(const std::string& target, const std::string& temporary) override {
    host_.Call(L"ReplaceFile", {Variant(target), Variant(temporary)});
  }
  bool IsEven(int32_t value) override { return host_.Call(L"IsEven", {Variant(value)}).ToBool(); }
  std::string CollapseSeparators(const std::string& text, const std::string& separator) override {
    return host_.Call(L"CollapseSeparators", {Variant(text), Variant(separator)}).ToText();
  }
  std::string TrimSeparators(const std::string& text, const std::string& separator) override {
    return host_.Call(L"TrimSeparators", {Variant(text), Variant(separator)}).ToText();
  }
  std::shared_ptr<IListControl> PrepareList(std::shared_ptr<IListControl> control) override {
    std::shared_ptr<Object> given = control;
    Variant kept = host_.Call(L"PrepareList", {Variant(given)});
    std::shared_ptr<Object> object = kept.ToObject();
    if (auto list = std::dynamic_pointer_cast<IListControl>(object)) return list;
    auto host = std::dynamic_pointer_cast<HostReference>(object);
    if (!host) return nullptr;
    return std::make_shared<DispatchListControl>(host->Dispatch());
  }

 private:
  DispatchCaller host_;
};

class MessageSinkAdapter : public IMessageSink {
 public:
  explicit MessageSinkAdapter(IDispatch* object) : host_(object) {}
  void Show(const std::string& text) override { host_.Call(L"Show", {Variant(text)}); }

 private:
  DispatchCaller host_;
};

}  // namespace

std::shared_ptr<ISettings> HostSettings(IDispatch* object) {
  return std::make_shared<SettingsAdapter>(object);
}
std::shared_ptr<IDice> HostDice(IDispatch* object) {
  return std::make_shared<DiceAdapter>(object);
}
std::shared_ptr<IDisplayText> HostDisplayText(IDispatch* object) {
  return std::make_shared<DisplayTextAdapter>(object);
}
std::shared_ptr<ILookup> HostLookup(IDispatch* object) {
  return std::make_shared<LookupAdapter>(object);
}
std::shared_ptr<IUtility> HostUtility(IDispatch* object) {
  return std::make_shared<UtilityAdapter>(object);
}
std::shared_ptr<IMessageSink> HostMessageSink(IDispatch* object) {
  return std::make_shared<MessageSinkAdapter>(object);
}

}  // namespace ringbook::com
