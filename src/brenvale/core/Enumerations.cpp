#include "brenvale/core/Enumerations.hpp"

#include <charconv>
#include <limits>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/ThreadState.hpp"

namespace brenvale {

std::string NormaliseEnumKey(std::string_view key) {
  std::string out;
  out.reserve(key.size());
  for (char c : key)
    if (c != ' ') out += c;
  return out;
}

zkEnumValue::zkEnumValue(Integer code, std::string description, std::string xmlTag)
    : code_(code), xmlTag_(std::move(xmlTag)) {
  SetDescription(std::move(description));
}

void zkEnumValue::SetDescription(std::string v) {
  description_ = std::move(v);
  key_ = NormaliseEnumKey(description_);
}

void ZKEnum::AddObject(const zkEnumValue& value) { values_.Add(value, value.CollectionKey()); }

const zkEnumValue& ZKEnum::Add(Integer code, std::string description, std::string xmlTag) {
  zkEnumValue v(code, std::move(description), std::move(xmlTag));
  std::string key = v.CollectionKey();
  return values_.Add(std::move(v), key);
}

bool ZKEnum::ItemExists(std::string_view key) const { return values_.Exists(NormaliseEnumKey(key)); }

const zkEnumValue& ZKEnum::Item(std::string_view key) const { return values_.Get(NormaliseEnumKey(key)); }

const zkEnumValue* ZKEnum::FindByCode(Integer code) const {
  for (const auto& v : values_)
    if (v.Code() == code) return &v;
  return nullptr;
}

const zkEnumValue& ZKEnum::ItemByCode(Integer code) const {
  const zkEnumValue* v = FindByCode(code);
  if (!v) Raise(1007, "Brenvale");
  return *v;
}

Integer ZKEnum::CodeOf(std::string_view text, bool byKey) const {
  for (const auto& v : values_)
    if ((byKey ? v.CollectionKey() : v.XMLTag()) == text) return v.Code();
  Raise(1008, "Brenvale");
}

std::optional<Integer> ZKEnum::CodeOfText(std::string_view text) const {
  for (const auto& v : values_)
    if (v.XMLTag() == text) return v.Code();
  const std::string key = NormaliseEnumKey(text);
  for (const auto& v : values_)
    if (v.CollectionKey() == key) return v.Code();
  return std::nullopt;
}

void Enumerations::AddObject(std::shared_ptr<ZKEnum> catalogue, std::string_view key) {
  const ZKEnum* filed = catalogue.get();
  catalogues_.Add(std::move(catalogue), key);
  // A catalogue filed under its enumeration's code is also found by position, without text keys.
  std::size_t index = 0;
  auto [end, ec] = std::from_chars(key.data(), key.data() + key.size(), index);
  if (ec == std::errc() && end == key.data() + key.size() && index < byType_.size()) byType_[index] = filed;
}

const ZKEnum& Enumerations::Item(zqEnumerationType type) const {
  const auto index = static_cast<std::size_t>(type);
  if (index < byType_.size() && byType_[index]) return *byType_[index];
  const auto* c = catalogues_.Find(std::to_string(static_cast<int>(type)));
  if (!c) Raise(1007, "Brenvale");
  return **c;
}

Enumerations& TheEnumerations() {
  struct Built {
    Enumerations catalogues;
    Built() { detail::BuildCatalogues(catalogues); }
  };
  return detail::ThreadState::Current().Get<Built>(detail::StateSlot::Enumerations).catalogues;
}

const ZKEnum& EnumCatalogue(zqEnumerationType type) { return TheEnumerations().Item(type); }

Integer NarrowEnumCode(Long code) {
  if (code < std::numeric_limits<Integer>::min() || code > std::numeric_limits<Integer>::max())
    platform::Raise(platform::kOverflow, "Brenvale");
  return static_cast<Integer>(code);
}

const std::string& EnumDescription(Long code, zqEnumerationType type) {
  const ZKEnum& cat = EnumCatalogue(type);
  return cat.ItemByCode(NarrowEnumCode(code)).Description();
}

const std::string& EnumXMLText(Long code, zqEnumerationType type) {
  const ZKEnum& cat = EnumCatalogue(type);
  return cat.XMLTagOf(NarrowEnumCode(code));
}

Long EnumCodeOfDescription(std::string_view description, zqEnumerationType type) {
  return EnumCatalogue(type).Item(description).Code();
}

}  // namespace brenvale
