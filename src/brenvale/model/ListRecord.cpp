#include "brenvale/model/ListRecord.hpp"

#include <unordered_set>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/TraceHook.hpp"
#include "brenvale/core/detail/Windows1252.hpp"
#include "brenvale/model/Lists.hpp"
#include "brenvale/model/zkList.hpp"
#include "brenvale/qbxml/Conversions.hpp"
#include "brenvale/qbxml/Dom.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace brenvale {
namespace {

const std::string kEmpty;
const zkListObjectRef kNoRef;

bool IsEmptyValue(const FieldValue& v) {
  if (std::holds_alternative<std::monostate>(v)) return true;
  if (auto s = std::get_if<std::string>(&v)) return s->empty();
  if (auto r = std::get_if<zkListObjectRef>(&v)) return r->IsEmpty();
  if (auto d = std::get_if<Date>(&v)) return d->IsNull();
  return false;
}

}  // namespace

std::size_t TextLength(std::string_view utf8) {
  std::size_t n = 0;
  for (char c : utf8)
    if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) ++n;
  return n;
}

ListRecord::ListRecord(const RecordSchema& schema)
    : schema_(schema), values_(schema.Fields().size()), changed_(schema.Fields().size(), false) {
  values_[kIsActive] = true;
}

// --- typed access -----------------------------------------------------------------------------

const std::string& ListRecord::Text(FieldId id) const {
  auto s = std::get_if<std::string>(&values_.at(id));
  return s ? *s : kEmpty;
}

bool ListRecord::Bool(FieldId id, bool fallback) const {
  auto b = std::get_if<bool>(&values_.at(id));
  return b ? *b : fallback;
}

std::int64_t ListRecord::Int(FieldId id) const {
  auto i = std::get_if<std::int64_t>(&values_.at(id));
  return i ? *i : 0;
}

Currency ListRecord::Amount(FieldId id) const {
  auto c = std::get_if<Currency>(&values_.at(id));
  return c ? *c : Currency();
}

double ListRecord::Number(FieldId id) const {
  auto d = std::get_if<double>(&values_.at(id));
  return d ? *d : 0.0;
}

Date ListRecord::DateValue(FieldId id) const {
  auto d = std::get_if<Date>(&values_.at(id));
  return d ? *d : Date();
}

const zkListObjectRef& ListRecord::Ref(FieldId id) const {
  auto r = std::get_if<zkListObjectRef>(&values_.at(id));
  return r ? *r : kNoRef;
}

void ListRecord::SetRefName(FieldId id, std::string fullName) {
  zkListObjectRef ref(std::move(fullName), schema_.Field(id).refList);
  Set(id, FieldValue(std::move(ref)));
}

void ListRecord::Set(FieldId id, FieldValue value) {
  MarkChanged(schema_.Field(id).fixedAfterAdd);
  values_.at(id) = std::move(value);
  changed_[id] = true;
}

void ListRecord::MarkChanged(bool fixedAfterAdd) {
  if (state_ == zqObjectStateNew) return;
  if (fixedAfterAdd) Raise(1002, Label());
  state_ = zqObjectStateDirty;
}

// --- names --------------------------------------------------------------------------------------

std::string ListRecord::Parent() const { return Ref(kParentRef).FullName(); }

std::string ListRecord::FullName() const {
  if (!schema_.Decl().hierarchical) return Name();
  std::string parent = Parent();
  if (parent.empty()) return Name();
  return parent + ":" + Name();
}

std::string ListRecord::CollectionKey() const {
  switch (schema_.Decl().key) {
    case RecordKey::ListID: return ListID();
    case RecordKey::FullName: return FullName();
    case RecordKey::Name: break;
  }
  return schema_.Decl().hierarchical ? FullName() : Name();
}

// --- reading ------------------------------------------------------------------------------------

Long ListRecord::FromDom(const DomNode& obj) {
  state_ = zqObjectStateClean;
  for (DomNode child : obj.Children()) {
    if (!child.IsElement()) continue;
    std::string_view name = child.BaseName();
    int id = schema_.ReadField(name);
    if (id >= 0) {
      try {
        ReadValue(static_cast<FieldId>(id), child);
      } catch (const BrenvaleError&) {
        // Reading is tolerant: a value that does not convert (a number out of range) is skipped
        // like an unknown element.
        detail::TraceUnknownField(Label(), name);
      }
    } else if (name == "UserData") {
      userData_ = child.Text();
    } else if (!ReadElement(name, child)) {
      detail::TraceUnknownField(Label(), name);
    }
  }
  std::fill(changed_.begin(), changed_.end(), false);
  return 0;
}

void ListRecord::ReadValue(FieldId id, const DomNode& node) {
  const FieldDef& f = schema_.Field(id);
  FieldValue& v = values_[id];
  switch (f.kind) {
    case FieldKind::Text: v = node.Text(); break;
    case FieldKind::Bool: v = TextToBool(node.Text()); break;
    case FieldKind::Int: v = static_cast<std::int64_t>(TextToLong(node.Text())); break;
    case FieldKind::Amount: v = TextToAmount(node.Text()); break;
    case FieldKind::Price:
    case FieldKind::Quantity: v = static_cast<double>(TextToAmount(node.Text()).ToDouble()); break;
    case FieldKind::Date:
    case FieldKind::DateTime: v = TextToDate(node.Text()); break;
    case FieldKind::Ref: {
      zkListObjectRef ref(node.ChildText("FullName"), f.refList, node.ChildText("ListID"));
      v = std::move(ref);
      break;
    }
    case FieldKind::Enum: {
      const std::string text = node.Text();
      v = static_cast<std::int64_t>(EnumCatalogue(f.enumType).CodeOf(text));
      break;
    }
  }
}

// --- writing ------------------------------------------------------------------------------------

bool ListRecord::PassesGate(Currency minVersion) const {
  return minVersion == Currency() || CurrentSession().qbXMLVersionNumber >= minVersion;
}

std::string ListRecord::ValueText(FieldId id) const {
  const FieldDef& f = schema_.Field(id);
  const FieldValue& v = values_.at(id);
  if (std::holds_alternative<std::monostate>(v)) return {};
  switch (f.kind) {
    case FieldKind::Text: return Text(id);
    case FieldKind::Bool: return BoolToText(Bool(id));
    case FieldKind::Int: return std::to_string(Int(id));
    case FieldKind::Amount: return AmountToText(Amount(id));
    case FieldKind::Price: return PriceToText(Number(id));
    case FieldKind::Quantity: return QuantityToText(Number(id));
    case FieldKind::Date: return DateValue(id).IsNull() ? std::string() : DateToText(DateValue(id));
    case FieldKind::DateTime: return DateValue(id).IsNull() ? std::string() : DateTimeToText(DateValue(id));
    case FieldKind::Ref: return Ref(id).FullName().empty() ? Ref(id).ListID() : Ref(id).FullName();
    case FieldKind::Enum: {
      const zkEnumValue* e = EnumCatalogue(f.enumType).FindByCode(static_cast<Integer>(Int(id)));
      return e ? e->XMLTag() : std::string();
    }
  }
  return {};
}

void ListRecord::SetFromText(FieldId id, std::string_view text) {
  const FieldDef& f = schema_.Field(id);
  switch (f.kind) {
    case FieldKind::Text: SetText(id, std::string(text)); break;
    case FieldKind::Bool: SetBool(id, TextToBool(text)); break;
    case FieldKind::Int: SetInt(id, TextToLong(text)); break;
    case FieldKind::Amount: SetAmount(id, TextToAmount(text)); break;
    case FieldKind::Price:
    case FieldKind::Quantity: SetNumber(id, TextToAmount(text).ToDouble()); break;
    case FieldKind::Date:
    case FieldKind::DateTime: SetDate(id, TextToDate(text)); break;
    case FieldKind::Ref: SetRefName(id, std::string(text)); break;
    case FieldKind::Enum: SetInt(id, EnumCatalogue(f.enumType).CodeOf(NormaliseEnumKey(text), true)); break;
  }
}

void ListRecord::WriteField(xmlBldr& b, FieldId id, bool modify) {
  const FieldDef& f = schema_.Field(id);
  const FieldValue& v = values_[id];
  // A modify request clears a field the caller emptied by writing it empty.
  bool clear = modify && changed_[id] && IsEmptyValue(v);
  if (f.kind == FieldKind::Ref) {
    if (!PassesGate(f.minVersion)) return;
    const zkListObjectRef& r = Ref(id);
    if (r.IsEmpty()) {
      if (clear) {
        b.OpenAggregateOnly(f.tag);
        b.CreateElement("FullName", "");
        b.EndAggregate(f.tag);
      }
      return;
    }
    b.OpenAggregateOnly(f.tag);
    if (!r.FullName().empty())
      b.CreateElement("FullName", r.FullName());
    else
      b.CreateElement("ListID", r.ListID());
    b.EndAggregate(f.tag);
    return;
  }
  if (f.kind == FieldKind::Date && !IsEmptyValue(v)) {
    b.CreateDateElement(f.tag, DateValue(id), f.minVersion);
    return;
  }
  b.CreateElement2(f.tag, ValueText(id), clear, f.minVersion);
}

Long ListRecord::XMLInsert(xmlBldr& cxmlbldr) {
  for (FieldId id : schema_.AddOrder()) WriteField(cxmlbldr, id, false);
  return 0;
}

Long ListRecord::XMLModify(xmlBldr& cxmlbldr) {
  if (!schema_.Decl().modRefusal.empty()) Raise(1003, "Brenvale: " + Label(), schema_.Decl().modRefusal);
  cxmlbldr.CreateElement("ListID", ListID());
  cxmlbldr.CreateElement("EditSequence", EditSequence());
  for (FieldId id : schema_.ModOrder()) WriteField(cxmlbldr, id, true);
  return 0;
}

Long ListRecord::XMLQueryRs(xmlBldr& cxmlbldr) {
  // The record in response form: every field that holds a value, in declaration order.
  for (const FieldDef& f : schema_.Fields())
    if (!IsEmptyValue(values_[f.id])) WriteField(cxmlbldr, f.id, false);
  return 0;
}

// --- validation ---------------------------------------------------------------------------------

bool ListRecord::Validate() {
  if (state_ == zqObjectStateClean) return true;
  errors_.Clear();
  std::unordered_set<std::string_view> failed;  // one entry per field: the first rule that fails
  for (const Rule& r : schema_.Decl().rules) {
    if (!r.tag.empty() && failed.count(r.tag)) continue;
    bool fails = false;
    switch (r.kind) {
      case RuleKind::NotEmpty: fails = IsEmptyValue(values_[schema_.IdOf(r.tag)]); break;
      case RuleKind::MaxLength: {
        FieldId id = schema_.IdOf(r.tag);
        std::string text = schema_.Field(id).kind == FieldKind::Ref ? Ref(id).FullName() : ValueText(id);
        fails = TextLength(text) >= static_cast<std::size_t>(r.limit) + 1;
        break;
      }
      case RuleKind::Parent: {
        std::string parent = Parent();
        if (parent.empty()) break;
        zkList* master = TheLists().Master(schema_.Decl().listType);
        zkListObject* found = master ? master->Find(parent) : nullptr;
        if (!found && master && CurrentSession().processor) {
          try {
            found = master->GetByFullName(parent);
          } catch (const BrenvaleError&) {
            found = nullptr;
          }
        }
        fails = found == nullptr;
        break;
      }
      case RuleKind::Custom: CheckRule(r.limit, errors_); break;
    }
    if (fails) {
      errors_.AddCode(r.code, r.label, r.message);
      if (!r.tag.empty()) failed.insert(r.tag);
    }
  }
  return errors_.Count() == 0;
}

}  // namespace brenvale
