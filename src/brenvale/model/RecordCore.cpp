#include "brenvale/model/RecordCore.hpp"

#include <algorithm>
#include <bit>
#include <bitset>
#include <cstring>

#include <utility>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/Enumerations.hpp"
#include "brenvale/core/TraceHook.hpp"
#include "brenvale/model/ChildList.hpp"
#include "brenvale/model/DataExtensions.hpp"
#include "brenvale/model/RefCache.hpp"
#include "brenvale/model/detail/DataExtBatch.hpp"
#include "brenvale/model/detail/ReadTable.hpp"
#include "brenvale/qbxml/Conversions.hpp"
#include "brenvale/qbxml/Dom.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace brenvale {
namespace {

using Slot = ValueStore::Slot;
constexpr std::uint8_t kChanged = ValueStore::kChanged;

std::uint64_t BitsOf(double value) { return std::bit_cast<std::uint64_t>(value); }
double DoubleOf(std::uint64_t bits) { return std::bit_cast<double>(bits); }

// The same, measured in one pass that also notes a lead byte of a C1 control (what a Windows-1252
// reference of codes 128-159 decodes to), which the text must then have fixed.
std::string_view ElementText(const pugi::xml_node& node, bool& maybeC1) {
  const char* text = node.child_value();
  const char* end = text;
  for (; *end; ++end)
    if (*end == '\xC2') maybeC1 = true;
  return {text, static_cast<std::size_t>(end - text)};
}

// The text of the first child element named `name` of a reference aggregate.
std::string_view ChildValue(const pugi::xml_node& node, const char* name) {
  const pugi::xml_node child = node.child(name);
  return child ? std::string_view(child.child_value()) : std::string_view();
}

}  // namespace

namespace detail {

// A record's data extensions: QuickBooks' own custom fields and the application's fields.
struct RecordDataExt {
  explicit RecordDataExt(RecordCore& record) : custom(record, "0"), application(record, {}) {}
  DataExtensions custom;
  DataExtensions application;  // its owner is known once the application's GUID or a value is

  // One "DataExtRet" element, into the values of its owner.
  void Read(const DomNode& node) {
    const std::string owner = node.ChildText("OwnerID");
    if (owner.empty() || owner == "0") return custom.Read(node);
    if (application.OwnerId().empty()) application.OwnerId(owner);
    application.Read(node);
  }
};

}  // namespace detail

std::size_t TextLength(std::string_view utf8) {
  std::size_t n = 0;
  for (char c : utf8)
    if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) ++n;
  return n;
}

RecordCore::~RecordCore() {
  for (const Slot& s : values_.Slots()) {
    if (!(s.flags & ValueStore::kOwned)) continue;
    if (s.id == kDataExtSlot)
      delete reinterpret_cast<detail::RecordDataExt*>(static_cast<std::uintptr_t>(s.bits));
    else if (decl_->Field(s.id).kind == ValueKind::Children)
      delete reinterpret_cast<ChildListBase*>(static_cast<std::uintptr_t>(s.bits));
    else
      delete reinterpret_cast<RecordCore*>(static_cast<std::uintptr_t>(s.bits));
  }
}

zkErrors& RecordCore::Errors() {
  if (!errors_) errors_ = std::make_unique<zkErrors>();
  return *errors_;
}

const zkErrors& RecordCore::Errors() const {
  static const zkErrors kNone;
  return errors_ ? *errors_ : kNone;
}

Variant& RecordCore::UserData() {
  if (!userData_) userData_ = std::make_unique<Variant>();
  return *userData_;
}

// --- typed access -------------------------------------------------------------------------------

std::string_view RecordCore::TextView(FieldId id) const {
  const Slot* s = values_.Find(id);
  return s ? values_.Text(*s) : decl_->Field(id).textDefault;
}

bool RecordCore::Bool(FieldId id, bool fallback) const {
  const Slot* s = values_.Find(id);
  if (s) return s->bits != 0;
  const std::int8_t declared = decl_->Field(id).boolDefault;
  return declared >= 0 ? declared == 1 : fallback;
}

std::int64_t RecordCore::Int(FieldId id) const {
  const Slot* s = values_.Find(id);
  return s ? static_cast<std::int64_t>(s->bits) : 0;
}

Currency RecordCore::Amount(FieldId id) const { return Currency::FromUnits(Int(id)); }

double RecordCore::Number(FieldId id) const {
  const Slot* s = values_.Find(id);
  return s ? DoubleOf(s->bits) : 0.0;
}

Date RecordCore::DateValue(FieldId id) const {
  const Slot* s = values_.Find(id);
  return s ? Date(DoubleOf(s->bits)) : Date();
}

Integer RecordCore::EnumCode(FieldId id) const { return static_cast<Integer>(Int(id)); }

std::string_view RecordCore::RefFullName(FieldId id) const {
  const Slot* s = values_.Find(id);
  return s ? values_.Second(*s) : std::string_view();
}

std::string_view RecordCore::RefListID(FieldId id) const {
  const Slot* s = values_.Find(id);
  return s ? values_.First(*s) : std::string_view();
}

zkListObjectRef RecordCore::Ref(FieldId id) const {
  const zqEnumListType list = decl_->Field(id).refList;
  return zkListObjectRef(std::string(RefFullName(id)), list != zqListTypeNone ? list : OwnList(),
                         std::string(RefListID(id)));
}

// --- setters ------------------------------------------------------------------------------------

void RecordCore::MarkChanged(bool fixedAfterAdd) {
  if (state_ == zqObjectStateNew) return;
  if (fixedAfterAdd) Raise(1002, Label());
  if (owner_) owner_->MarkChanged(false);
  state_ = zqObjectStateDirty;
}

void RecordCore::BeforeSet(FieldId id) { MarkChanged(decl_->Field(id).fixedAfterAdd); }

void RecordCore::AfterSet(FieldId id) {
  // One field of a choice holds a value: setting it clears the others.
  const std::uint8_t choice = decl_->Field(id).choice;
  if (choice == 0) return;
  for (std::size_t other = 0; other < decl_->fields.size(); ++other)
    if (other != id && decl_->fields[other]->choice == choice) EraseValue(static_cast<FieldId>(other));
}

void RecordCore::EraseValue(FieldId id) {
  const Slot* s = values_.Find(id);
  if (!s) return;
  if (s->flags & ValueStore::kOwned) {
    const auto address = static_cast<std::uintptr_t>(s->bits);
    const bool list = decl_->Field(id).kind == ValueKind::Children;
    values_.Erase(id);
    if (list)
      delete reinterpret_cast<ChildListBase*>(address);
    else
      delete reinterpret_cast<RecordCore*>(address);
    return;
  }
  values_.Erase(id);
}

bool RecordCore::ChoiceTaken(FieldId id, FieldId& other) const {
  const std::uint8_t choice = decl_->Field(id).choice;
  if (choice == 0) return false;
  for (std::size_t i = 0; i < decl_->fields.size(); ++i) {
    const auto f = static_cast<FieldId>(i);
    if (f == id || decl_->fields[i]->choice != choice || !values_.Has(f)) continue;
    const FieldDef& def = *decl_->fields[i];
    const bool holds = def.kind == ValueKind::Aggregate   ? FindNested(f)->HoldsAnyValue()
                       : def.kind == ValueKind::Children ? FindChildren(f)->Count() > 0
                                                         : true;
    if (holds) {
      other = f;
      return true;
    }
  }
  return false;
}

void RecordCore::SetText(FieldId id, std::string_view value) {
  BeforeSet(id);
  values_.SetText(id, value, kChanged);
  AfterSet(id);
}

void RecordCore::SetBool(FieldId id, bool value) {
  BeforeSet(id);
  values_.SetBits(id, value ? 1 : 0, kChanged);
  AfterSet(id);
}

void RecordCore::SetInt(FieldId id, std::int64_t value) {
  BeforeSet(id);
  values_.SetBits(id, static_cast<std::uint64_t>(value), kChanged);
  AfterSet(id);
}

void RecordCore::SetAmount(FieldId id, Currency value) { SetInt(id, value.Units()); }

void RecordCore::SetNumber(FieldId id, double value) {
  BeforeSet(id);
  values_.SetBits(id, BitsOf(value), kChanged);
  AfterSet(id);
}

void RecordCore::SetDate(FieldId id, Date value) {
  BeforeSet(id);
  values_.SetBits(id, BitsOf(value.Value()), kChanged);
  AfterSet(id);
}

void RecordCore::SetEnum(FieldId id, Integer code) {
  EnumCatalogue(decl_->Field(id).enumType).ItemByCode(code);  // 1007 for a code the catalogue lacks
  SetInt(id, code);
}

void RecordCore::SetRefName(FieldId id, std::string_view fullName) {
  BeforeSet(id);
  values_.SetPair(id, {}, fullName, kChanged | ValueStore::kPair);
  AfterSet(id);
}

void RecordCore::SetRef(FieldId id, const zkListObjectRef& ref) {
  BeforeSet(id);
  values_.SetPair(id, ref.ListID(), ref.FullName(), kChanged | ValueStore::kPair);
  AfterSet(id);
}

void RecordCore::Unset(FieldId id) {
  BeforeSet(id);
  EraseValue(id);
}

// --- nested records -------------------------------------------------------------------------------

RecordCore& RecordCore::Nested(FieldId id) {
  if (const RecordCore* held = FindNested(id)) return const_cast<RecordCore&>(*held);
  const FieldDef& f = decl_->Field(id);
  if (f.choice != 0) {
    // One aggregate of a choice is written: another that holds values is not given up unasked.
    FieldId other = kNoField;
    if (ChoiceTaken(id, other))
      Raise(1003, "Brenvale: " + std::string(Label()),
            std::string(f.tag) + " cannot be used while the record holds " + std::string(decl_->Field(other).tag));
    AfterSet(id);  // the empty others go
  }
  const RecordDecl& body = f.body();
  std::unique_ptr<RecordCore> nested(body.make(body));
  nested->owner_ = this;
  // Part of a record QuickBooks holds: its first change makes both Dirty.
  nested->state_ = state_ == zqObjectStateNew ? zqObjectStateNew : zqObjectStateClean;
  values_.SetBits(id, reinterpret_cast<std::uintptr_t>(nested.get()), ValueStore::kOwned);
  return *nested.release();
}

const RecordCore* RecordCore::FindNested(FieldId id) const {
  const Slot* s = values_.Find(id);
  return s && (s->flags & ValueStore::kOwned) ? reinterpret_cast<const RecordCore*>(static_cast<std::uintptr_t>(s->bits))
                                              : nullptr;
}

ChildListBase& RecordCore::ChildrenOf(FieldId id) {
  if (const ChildListBase* held = FindChildren(id)) return const_cast<ChildListBase&>(*held);
  auto list = std::make_unique<ChildListBase>(decl_->Field(id).body(), *this);
  values_.SetBits(id, reinterpret_cast<std::uintptr_t>(list.get()), ValueStore::kOwned);
  return *list.release();
}

const ChildListBase* RecordCore::FindChildren(FieldId id) const {
  const Slot* s = values_.Find(id);
  return s && (s->flags & ValueStore::kOwned)
             ? reinterpret_cast<const ChildListBase*>(static_cast<std::uintptr_t>(s->bits))
             : nullptr;
}

void RecordCore::ForEachNested(const std::function<void(const RecordCore&)>& visit) const {
  for (const Slot& s : values_.Slots()) {
    // The data extensions' slot holds values, not a nested record.
    if (!(s.flags & ValueStore::kOwned) || s.id == kDataExtSlot) continue;
    if (decl_->Field(s.id).kind == ValueKind::Children) {
      for (const auto& child : *reinterpret_cast<const ChildListBase*>(static_cast<std::uintptr_t>(s.bits)))
        visit(*child);
    } else {
      visit(*reinterpret_cast<const RecordCore*>(static_cast<std::uintptr_t>(s.bits)));
    }
  }
}

void RecordCore::ForEachNestedMutable(const std::function<void(RecordCore&)>& visit) {
  // The nested records are this record's own: one that may change it may change them.
  std::as_const(*this).ForEachNested([&](const RecordCore& nested) { visit(const_cast<RecordCore&>(nested)); });
}

const RecordCore* RecordCore::NestedAt(FieldId id, std::size_t i) const {
  if (decl_->Field(id).kind == ValueKind::Aggregate) return i == 0 ? FindNested(id) : nullptr;
  const ChildListBase* list = FindChildren(id);
  return list && i < list->Count() ? &list->At(i + 1) : nullptr;
}

// --- reading ------------------------------------------------------------------------------------

void RecordCore::ReadFrom(const DomNode& element) {
  state_ = zqObjectStateClean;
  values_.ClearChanged();
  const bool traced = detail::TraceObserved();
  const detail::ReadTable& table = detail::ReadTable::Of(*decl_);
  if (values_.Slots().empty()) values_.Reserve(table.lastSlots + 2, table.lastText + table.lastText / 4 + 16);
  std::size_t cursor = 0;
  std::bitset<256> listsRead;  // child lists refilled by this read
  for (pugi::xml_node c = element.Raw().first_child(); c; c = c.next_sibling()) {
    // Text and comments between elements have no name. The base name is what follows a prefix.
    const char* raw = c.name();
    if (!*raw) continue;
    const char* base = raw;
    const char* end = raw;
    for (; *end; ++end)
      if (*end == ':') base = end + 1;
    const std::string_view name(base, static_cast<std::size_t>(end - base));
    const FieldId id = table.Find(name, cursor);
    if (id != kNoField) {
      if (decl_->Field(id).kind == ValueKind::Children && !listsRead[id]) {
        listsRead.set(id);
        ChildrenOf(id).Clear();
      }
      // Reading is tolerant: a value that does not convert is skipped like an unknown element.
      if (!ReadField(id, DomNode(c)) && traced) detail::TraceUnknownField(Label(), name);
    } else if (name == "UserData") {
      UserData() = DomNode(c).Text();
    } else if (decl_->dataExt && name == "DataExtRet") {
      DataExtHolder().Read(DomNode(c));
    } else if (!ReadOwn(name, DomNode(c)) && traced) {
      detail::TraceUnknownField(Label(), name);
    }
  }
  table.lastSlots = values_.Slots().size();
  table.lastText = values_.TextSize();
  // Child records joining the record while it was read changed nothing.
  state_ = zqObjectStateClean;
  AfterRead();
}

bool RecordCore::ReadField(FieldId id, const DomNode& node) {
  const FieldDef& f = decl_->Field(id);
  const pugi::xml_node& raw = node.Raw();
  switch (f.kind) {
    case ValueKind::Text: {
      bool maybeC1 = false;
      values_.ReadText(id, ElementText(raw, maybeC1));
      if (maybeC1) values_.FixC1(id);
      return true;
    }
    case ValueKind::Bool: values_.ReadBits(id, TextToBool(raw.child_value()) ? 1 : 0); return true;
    case ValueKind::Int:
      try {
        values_.ReadBits(id, static_cast<std::uint64_t>(static_cast<std::int64_t>(TextToLong(raw.child_value()))));
      } catch (const BrenvaleError&) {
        return false;
      }
      return true;
    case ValueKind::Amount:
      values_.ReadBits(id, static_cast<std::uint64_t>(TextToAmount(raw.child_value()).Units()));
      return true;
    case ValueKind::Price:
    case ValueKind::Quantity: {
      const auto number = TextToNumber(raw.child_value());
      if (!number) return false;
      values_.ReadBits(id, BitsOf(*number));
      return true;
    }
    case ValueKind::Date:
    case ValueKind::DateTime: values_.ReadBits(id, BitsOf(TextToDate(raw.child_value()).Value())); return true;
    case ValueKind::Enum: {
      const auto code = EnumCatalogue(f.enumType).CodeOfText(raw.child_value());
      if (!code) return false;
      values_.ReadBits(id, static_cast<std::uint64_t>(static_cast<std::int64_t>(*code)));
      return true;
    }
    case ValueKind::Ref:
      values_.ReadPair(id, ChildValue(raw, "ListID"), ChildValue(raw, "FullName"), ValueStore::kPair);
      values_.FixC1(id);
      return true;
    case ValueKind::Aggregate:
      // What QuickBooks answers replaces the other aggregates of a choice.
      if (f.choice != 0 && !FindNested(id)) AfterSet(id);
      Nested(id).ReadFrom(node);
      return true;
    case ValueKind::Children: {
      RecordCore& child = ChildrenOf(id).AddNew();
      child.ReadFrom(node);
      return true;
    }
    case ValueKind::Own: ReadOwnField(id, node); return true;
  }
  return false;
}

// --- writing ------------------------------------------------------------------------------------

void RecordCore::WriteLead(xmlBldr&, const WriteContext&) const {}

void RecordCore::WriteBody(xmlBldr& b, const WriteContext& context) const {
  for (FieldId id : decl_->Order(context.form)) WriteField(b, id, context);
}

bool RecordCore::IsEmptyValue(FieldId id) const {
  const Slot* s = values_.Find(id);
  if (!s) return true;
  switch (decl_->Field(id).kind) {
    case ValueKind::Text:
    case ValueKind::Ref: return s->bits == 0;
    case ValueKind::Date:
    case ValueKind::DateTime: return DoubleOf(s->bits) == 0.0;
    default: return false;
  }
}

void RecordCore::WriteField(xmlBldr& b, FieldId id, const WriteContext& context) const {
  const FieldDef& f = decl_->Field(id);
  if (!f.since.Any() && context.versionNumber < f.since.Number()) return;
  if (f.gate && !f.gate(context, *this)) return;
  if (f.kind == ValueKind::Own) return WriteOwnField(b, id, context);
  const Slot* s = values_.Find(id);
  if (!s) {
    // A value QuickBooks needs in an add goes with its default.
    if (context.form != Form::Add) return;
    if (f.boolDefault >= 0)
      b.CreateElement(f.tag, BoolToText(f.boolDefault == 1));
    else if (!f.textDefault.empty())
      b.CreateElement(f.tag, f.textDefault);
    return;
  }
  // A modify request clears a field the caller emptied by writing it empty.
  const bool empty = IsEmptyValue(id);
  const bool clear = empty && context.form == Form::Mod && (s->flags & kChanged);
  const std::string_view tag = f.TagIn(context);
  switch (f.kind) {
    case ValueKind::Text: b.CreateElement2(tag, values_.Text(*s), clear, Currency()); return;
    case ValueKind::Date:
    case ValueKind::DateTime:
      if (empty) {
        if (clear) b.CreateElement(tag, "");
        return;
      }
      b.CreateElement(tag, f.kind == ValueKind::Date ? DateToText(DateValue(id))
                                                      : DateTimeToText(DateValue(id), context.versionNumber));
      return;
    case ValueKind::Ref: {
      if (empty && !clear) return;
      b.OpenAggregateOnly(tag);
      const std::string_view fullName = values_.Second(*s);
      if (!fullName.empty() || empty)
        b.CreateElement("FullName", fullName);
      else
        b.CreateElement("ListID", values_.First(*s));
      b.EndAggregate(tag);
      return;
    }
    case ValueKind::Aggregate: {
      const RecordCore* nested = FindNested(id);
      if (!nested || !nested->HoldsAnyValue()) return;
      const std::string_view aggregate = context.form == Form::Mod && !f.modTag.empty() ? f.modTag : f.tag;
      b.OpenAggregateOnly(aggregate);
      nested->WriteBody(b, context);
      b.EndAggregate(aggregate);
      return;
    }
    case ValueKind::Children: {
      const ChildListBase* list = FindChildren(id);
      if (!list) return;
      const RecordDecl& form = list->Form();
      const std::string_view each = context.form == Form::Add ? form.addTag : context.form == Form::Mod ? form.modTag : f.tag;
      if (each.empty()) return;  // a list QuickBooks only reports
      if (list->Count() == 0 && context.form == Form::Mod && !f.clearTag.empty()) {
        b.CreateElement(f.clearTag, BoolToText(true));
        return;
      }
      for (const auto& child : *list) {
        b.OpenAggregateOnly(each);
        child->WriteLead(b, context);
        child->WriteBody(b, context);
        b.EndAggregate(each);
      }
      return;
    }
    default: b.CreateElement(tag, ValueText(id)); return;
  }
}

// --- validation ---------------------------------------------------------------------------------

bool RecordCore::FailsLength(FieldId id, std::string_view value) const {
  for (const Rule& r : decl_->rules)
    if (r.kind == RuleKind::MaxLength && r.field == id && TextLength(value) > r.limit) return true;
  return false;
}

bool RecordCore::Validate() {
  ValidateContext context = ValidateContext::OfSession();
  if (state_ != zqObjectStateClean && context.refs && context.mayFetch) {
    // The names its rules (and its nested records' rules) look up: one query per list, at once.
    RefCache::Batch names;
    ForEachReference([&](zqEnumListType list, std::string_view name) { names.Add(list, name); });
    context.refs->Fetch(names);
  }
  return Validate(context);
}

bool RecordCore::Validate(ValidateContext& context) {
  if (state_ == zqObjectStateClean) return true;
  return ValidateValues(context);
}

bool RecordCore::ValidateValues(ValidateContext& context) {
  zkErrors& errors = Errors();
  errors.Clear();
  std::bitset<256> failed;  // one entry per field: the first of its rules that fails
  for (const Rule& r : decl_->rules) {
    if (r.field != kNoField && failed[r.field]) continue;
    if (r.kind == RuleKind::Own) {
      r.check(*this, errors, context);
      continue;
    }
    if (r.kind == RuleKind::Nested) {
      ValidateNested(r, errors, context);
      continue;
    }
    int code = r.code;
    if (!RuleFails(r, context, code)) continue;
    if (code == 0)
      errors.Add(0, std::string(r.label), std::string(r.message));
    else
      errors.AddCode(code, std::string(r.label), r.message);
    if (r.field != kNoField) failed.set(r.field);
  }
  return errors.Count() == 0;
}

void RecordCore::ValidateNested(const Rule& r, zkErrors& errors, ValidateContext& context) {
  for (std::size_t i = 0; const RecordCore* held = NestedAt(r.field, i); ++i) {
    auto& nested = const_cast<RecordCore&>(*held);
    if (nested.ValidateValues(context)) continue;
    if (r.code != 0) {  // one entry of the rule's code stands for all of them
      errors.AddCode(r.code, std::string(r.label), r.message);
      return;
    }
    for (const zkError& e : nested.Errors())
      errors.Add(e.Number(), r.label.empty() ? e.Field() : std::string(r.label), e.Description());
  }
}

bool RecordCore::RuleFails(const Rule& r, ValidateContext& context, int& code) {
  const FieldDef& f = decl_->Field(r.field);
  switch (r.kind) {
    case RuleKind::NotEmpty:
      return f.kind == ValueKind::Text || f.kind == ValueKind::Ref || f.kind == ValueKind::Date ||
                     f.kind == ValueKind::DateTime
                 ? IsEmptyValue(r.field)
                 : !values_.Has(r.field);
    case RuleKind::MaxLength: {
      const std::string_view text = f.kind == ValueKind::Ref ? RefFullName(r.field) : TextView(r.field);
      return TextLength(text) >= static_cast<std::size_t>(r.limit) + 1;
    }
    case RuleKind::Exists: {
      const std::string_view name = RefFullName(r.field);
      if (name.empty()) return r.emptyFails;
      const zqEnumListType list = r.list != zqListTypeNone ? r.list : OwnList();
      const std::string_view sortTag = r.alike != kNoField ? decl_->Field(r.alike).tag : std::string_view();
      RefEntry found;
      RefAnswer answer = context.refs ? context.refs->Find(list, name, &found, sortTag) : RefAnswer::Unknown;
      if (answer == RefAnswer::Unknown && context.refs && context.mayFetch) {
        context.refs->Fetch(list, {std::string(name)}, sortTag);
        answer = context.refs->Find(list, name, &found, sortTag);
      }
      if (answer == RefAnswer::Unknown) return r.uncheckedFails;
      if (answer == RefAnswer::Missing) return true;
      if (!r.accepted.empty() &&
          std::find(r.accepted.begin(), r.accepted.end(), std::string_view(found.retName)) == r.accepted.end()) {
        code = r.otherKindCode;
        return true;
      }
      // Of another sort than this record: only when both sorts are known.
      if (r.alike != kNoField && Has(r.alike) && !found.sort.empty() && found.sort != ValueText(r.alike)) {
        code = r.alikeCode;
        return true;
      }
      return false;
    }
    case RuleKind::Nested:
    case RuleKind::Own: break;
  }
  return false;
}

// --- generic access -----------------------------------------------------------------------------

FieldValue RecordCore::Value(FieldId id) const {
  const Slot* s = values_.Find(id);
  if (!s) return {};
  switch (decl_->Field(id).kind) {
    case ValueKind::Text: return std::string(values_.Text(*s));
    case ValueKind::Bool: return s->bits != 0;
    case ValueKind::Int:
    case ValueKind::Enum: return static_cast<std::int64_t>(s->bits);
    case ValueKind::Amount: return Amount(id);
    case ValueKind::Price:
    case ValueKind::Quantity: return DoubleOf(s->bits);
    case ValueKind::Date:
    case ValueKind::DateTime: return DateValue(id);
    case ValueKind::Ref: return Ref(id);
    case ValueKind::Aggregate:
    case ValueKind::Children:
    case ValueKind::Own: break;
  }
  return {};
}

std::string RecordCore::ValueText(FieldId id) const {
  const FieldDef& f = decl_->Field(id);
  if (f.kind == ValueKind::Own) return OwnFieldText(id);
  const Slot* s = values_.Find(id);
  if (!s) return {};
  switch (f.kind) {
    case ValueKind::Text: return std::string(values_.Text(*s));
    case ValueKind::Bool: return BoolToText(s->bits != 0);
    case ValueKind::Int: return std::to_string(static_cast<std::int64_t>(s->bits));
    case ValueKind::Amount: return AmountToText(Amount(id));
    case ValueKind::Price: return PriceToText(DoubleOf(s->bits));
    case ValueKind::Quantity: return QuantityToRequestText(DoubleOf(s->bits));
    case ValueKind::Date: return DateValue(id).IsNull() ? std::string() : DateToText(DateValue(id));
    case ValueKind::DateTime: return DateValue(id).IsNull() ? std::string() : DateTimeToText(DateValue(id));
    case ValueKind::Enum: {
      const zkEnumValue* e = EnumCatalogue(f.enumType).FindByCode(EnumCode(id));
      return e ? e->XMLTag() : std::string();
    }
    case ValueKind::Ref: {
      const std::string_view name = values_.Second(*s);
      return std::string(name.empty() ? values_.First(*s) : name);
    }
    case ValueKind::Aggregate:
    case ValueKind::Children:
    case ValueKind::Own: break;
  }
  return {};
}

void RecordCore::SetFromText(FieldId id, std::string_view text) {
  const FieldDef& f = decl_->Field(id);
  switch (f.kind) {
    case ValueKind::Text: SetText(id, text); return;
    case ValueKind::Bool: SetBool(id, TextToBool(text)); return;
    case ValueKind::Int: SetInt(id, TextToLong(text)); return;
    case ValueKind::Amount: SetAmount(id, TextToAmount(text)); return;
    case ValueKind::Price:
    case ValueKind::Quantity: SetNumber(id, TextToNumber(text).value_or(0.0)); return;
    case ValueKind::Date:
    case ValueKind::DateTime: SetDate(id, TextToDate(text)); return;
    case ValueKind::Enum: {
      const auto code = EnumCatalogue(f.enumType).CodeOfText(text);
      if (!code) Raise(1008, "Brenvale");
      SetInt(id, *code);
      return;
    }
    case ValueKind::Ref: SetRefName(id, text); return;
    case ValueKind::Own: SetOwnFieldText(id, text); return;
    case ValueKind::Aggregate:
    case ValueKind::Children: break;
  }
  Raise(1030, Label());
}

void RecordCore::SetOwnFieldText(FieldId, std::string_view) { Raise(1030, Label()); }

// --- data extensions ------------------------------------------------------------------------------

detail::RecordDataExt* RecordCore::DataExtHeld() const {
  const Slot* s = values_.Find(kDataExtSlot);
  return s ? reinterpret_cast<detail::RecordDataExt*>(static_cast<std::uintptr_t>(s->bits)) : nullptr;
}

detail::RecordDataExt& RecordCore::DataExtHolder() {
  if (detail::RecordDataExt* held = DataExtHeld()) return *held;
  if (!decl_->dataExt) Raise(1030, Label());
  auto made = std::make_unique<detail::RecordDataExt>(*this);
  values_.SetBits(kDataExtSlot, reinterpret_cast<std::uintptr_t>(made.get()), ValueStore::kOwned);
  return *made.release();
}

DataExtensions& RecordCore::CustomFields() { return DataExtHolder().custom; }

DataExtensions& RecordCore::ApplicationFields() {
  DataExtensions& fields = DataExtHolder().application;
  if (fields.OwnerId().empty()) {
    const std::string& registered = CurrentSession().dataExtOwnerID;
    if (registered.empty()) Raise(2802, "DataExtensions");
    fields.OwnerId(registered);
  }
  return fields;
}

const DataExtensions* RecordCore::FindCustomFields() const {
  const detail::RecordDataExt* held = DataExtHeld();
  return held && held->custom.Count() > 0 ? &held->custom : nullptr;
}

const DataExtensions* RecordCore::FindApplicationFields() const {
  const detail::RecordDataExt* held = DataExtHeld();
  return held && held->application.Count() > 0 ? &held->application : nullptr;
}

void RecordCore::AddDataExtChanges(detail::DataExtBatch& batch) {
  if (detail::RecordDataExt* held = DataExtHeld()) {
    batch.Add(held->custom);
    batch.Add(held->application);
  }
  ForEachNestedMutable([&](RecordCore& child) { child.AddDataExtChanges(batch); });
}

Long RecordCore::ReportDataExtFailures() {
  Long failed = 0;
  if (detail::RecordDataExt* held = DataExtHeld())
    for (DataExtensions* fields : {&held->custom, &held->application})
      for (const DataExtension& value : *fields) {
        if (value.PendingRequest().empty()) continue;
        for (const zkError& e : value.Errors()) {
          Errors().Add(e.Number(), value.Name(), e.Description());
          ++failed;
        }
      }
  ForEachNestedMutable([&](RecordCore& child) { failed += child.ReportDataExtFailures(); });
  return failed;
}

Long RecordCore::SaveDataExtensions(std::string_view ListOrTxnId) {
  if (!decl_->dataExt) Raise(1030, Label());
  if (!ListOrTxnId.empty()) {
    CustomFields().ListOrTxnId(std::string(ListOrTxnId));
    DataExtHolder().application.ListOrTxnId(std::string(ListOrTxnId));
  }
  detail::DataExtBatch batch;
  AddDataExtChanges(batch);
  const Long saved = batch.Send();
  if (ReportDataExtFailures() > 0 && CurrentSession().commitRaises) Raise(1023, Label());
  return saved;
}

}  // namespace brenvale
