#include "com/DispatchListControl.h"

#include "com/Convert.h"
#include "core/Text.h"

namespace ringbook::com {

bool DispatchListControl::IsListBox() const {
  if (!list_box_) {
    const std::string type = caller_.TypeName();
    list_box_ = type.empty() ? caller_.Has(L"ItemData") && !caller_.Has(L"ItemTag")
                             : text::CompareNoCase(type, "ListBox") == 0;
  }
  return *list_box_;
}

void DispatchListControl::Clear() {
  caller_.Call(L"Clear");
}

void DispatchListControl::AddItem(const std::string& text, int32_t index) {
  if (index == -1) {
    // The index is left out as an omitted optional argument, not dropped.
    caller_.Call(L"AddItem", {Variant(text)}, 1);
  } else {
    caller_.Call(L"AddItem", {Variant(text), Variant(index)});
  }
}

int32_t DispatchListControl::NewIndex() const {
  return caller_.Get(L"NewIndex").ToLong();
}

int32_t DispatchListControl::ItemData(int32_t index) const {
  return caller_.Get(L"ItemData", {Variant(index)}).ToLong();
}

void DispatchListControl::SetItemData(int32_t index, int32_t value) {
  caller_.Set(L"ItemData", {Variant(index)}, Variant(value));
}

Variant DispatchListControl::ItemTag(int32_t index) const {
  return caller_.Get(L"ItemTag", {Variant(index)});
}

void DispatchListControl::SetItemTag(int32_t index, const Variant& value) {
  caller_.Set(L"ItemTag", {Variant(index)}, value);
}

int32_t DispatchListControl::ListCount() const {
  return caller_.Get(L"ListCount").ToLong();
}

int32_t DispatchListControl::ListIndex() const {
  return caller_.Get(L"ListIndex").ToLong();
}

void DispatchListControl::SetListIndex(int32_t index) {
  caller_.Set(L"ListIndex", {}, Variant(index));
}

bool DispatchListControl::Selected(int32_t index) const {
  return caller_.Get(L"Selected", {Variant(index)}).ToBool();
}

void DispatchListControl::SetSelected(int32_t index, bool selected) {
  caller_.Set(L"Selected", {Variant(index)}, Variant(selected));
}

void DispatchListControl::RemoveItem(int32_t index) {
  caller_.Call(L"RemoveItem", {Variant(index)});
}

void DispatchListControl::Refresh() {
  caller_.Call(L"Refresh");
}

void DispatchListControl::SetFontBold(bool bold) {
  Variant font = caller_.Get(L"Font");
  auto host = std::dynamic_pointer_cast<HostReference>(font.ToObject());
  if (!host) throw Error::Runtime(errnum::kObjectDoesNotSupport);
  DispatchCaller(host->Dispatch()).Set(L"Bold", {}, Variant(bold));
}

Variant ListControlArgument(const VARIANT& value) {
  if (IsMissing(value)) return Variant();
  Variant v = FromVariant(value);
  if (!v.IsObject()) return v;
  std::shared_ptr<Object> object = v.ToObject();
  auto host = std::dynamic_pointer_cast<HostReference>(object);
  if (!host) return v;
  return Variant(
      std::static_pointer_cast<Object>(std::make_shared<DispatchListControl>(host->Dispatch())));
}

}  // namespace ringbook::com
