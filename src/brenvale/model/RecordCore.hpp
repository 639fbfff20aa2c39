#pragma once
// The body every record shares, whatever its kind: values by declared field, the New/Clean/Dirty
// state, Errors, reading from a response element, writing the body of an add or modify request,
// the declared validation rules, a hook before every set, and the nested aggregates and child
// lists it owns. The identities (ListRecord, TxnRecord, LineRecord) and the record classes build on
// it; none of them reads, writes or validates a field by hand.
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "brenvale/core/Currency.hpp"
#include "brenvale/core/Date.hpp"
#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/core/Types.hpp"
#include "brenvale/core/zkErrors.hpp"
#include "brenvale/model/DataExtObject.hpp"
#include "brenvale/model/RecordDecl.hpp"
#include "brenvale/model/ValueStore.hpp"
#include "brenvale/model/zkListObjectRef.hpp"

namespace brenvale {

class DomNode;
class xmlBldr;
class ChildListBase;
class DataExtensions;
namespace detail {
class DataExtBatch;
struct RecordDataExt;
}  // namespace detail

// A field's value, for code that walks the declaration (the tool, tests).
using FieldValue = std::variant<std::monostate, std::string, bool, std::int64_t, Currency, double, Date,
                                zkListObjectRef>;

// The key a collection files a record under, as up to three pieces of text joined ("Top:Mid", ":",
// "Sub"), so that a key is compared and hashed without being built.
struct KeyParts {
  std::string_view part[3]{};
  std::size_t Size() const { return part[0].size() + part[1].size() + part[2].size(); }
  bool Empty() const { return Size() == 0; }
  std::string Joined() const { return std::string(part[0]).append(part[1]).append(part[2]); }
};

class RecordCore {
 public:
  explicit RecordCore(const RecordDecl& decl) noexcept : decl_(&decl) {}
  virtual ~RecordCore();
  RecordCore(const RecordCore&) = delete;
  RecordCore& operator=(const RecordCore&) = delete;

  const RecordDecl& Decl() const { return *decl_; }
  // The class label of the record's errors ("JobType").
  std::string_view Label() const { return decl_->label; }
  zqEnumObjectState ObjectState() const { return state_; }
  // The record's error list, created on first use.
  zkErrors& Errors();
  const zkErrors& Errors() const;
  // The client's own slot.
  Variant& UserData();

  // --- reading, writing, validating: every kind through its declaration ---------------------------
  // Fills the record from its response element; the record is Clean afterwards. Elements the
  // declaration does not name go to the trace hook as "Unknown Field: " and their name.
  void ReadFrom(const DomNode& element);
  // Writes the elements of the context's form (Add, Mod, Ret), in the declared order.
  void WriteBody(xmlBldr& b, const WriteContext& context) const;
  // The elements a record writes before its body in a Mod (ListID and EditSequence, TxnLineID).
  virtual void WriteLead(xmlBldr& b, const WriteContext& context) const;
  // Runs the declared rules in order (a Clean record passes untested); returns whether none failed.
  bool Validate();
  bool Validate(ValidateContext& context);
  // Runs the rules whatever the record's state: the checks of a nested record, run by its owner.
  bool ValidateValues(ValidateContext& context);
  // The names the rules will look up, for a batch to fetch them at once before validating.
  template <class F>
  void ForEachReference(F&& visit) const;
  // Whether `value` of the field is longer than one of the record's rules allows (a name that fails
  // its rule is never looked up).
  bool FailsLength(FieldId id, std::string_view value) const;

  // --- generic access by field, for code that walks the declaration -----------------------------
  bool Has(FieldId id) const { return values_.Has(id); }
  // Whether the record holds any value (an aggregate holding none is not written).
  bool HoldsAnyValue() const { return !values_.Slots().empty(); }
  FieldValue Value(FieldId id) const;
  // The value as qbXML writes it; empty when unset.
  std::string ValueText(FieldId id) const;
  // Sets a field from qbXML-style text, through the setter rules (1002; 1008 for an unknown
  // enumeration text).
  void SetFromText(FieldId id, std::string_view text);
  // The nested record of an aggregate field (created on first use) and the list of a children field.
  RecordCore& Nested(FieldId id);
  const RecordCore* FindNested(FieldId id) const;
  ChildListBase& ChildrenOf(FieldId id);
  const ChildListBase* FindChildren(FieldId id) const;
  // Every nested aggregate and child record the record holds.
  void ForEachNested(const std::function<void(const RecordCore&)>& visit) const;
  // The same, for a visit that may change them.
  void ForEachNestedMutable(const std::function<void(RecordCore&)>& visit);
  // The i-th (from 0) record an aggregate or a list of child records holds, or null past the last.
  const RecordCore* NestedAt(FieldId id, std::size_t i) const;

  // --- data extensions (custom fields), on the kinds whose declaration carries them ---------------
  // QuickBooks' own custom fields (owner "0") on this record; 1030 on a kind that has none. The
  // values come with the record when its query asked for them, and are kept only once one is held.
  DataExtensions& CustomFields();
  // The fields of the application whose GUID is registered with the connection (2802 when none is).
  DataExtensions& ApplicationFields();
  // The values held, or null when the record holds none.
  const DataExtensions* FindCustomFields() const;
  const DataExtensions* FindApplicationFields() const;
  // Saves, in one message, the values of the record and of its lines that were added, changed or
  // cleared; `ListOrTxnId` names the object when it is not the record's own. Returns how many
  // QuickBooks saved; failures are collected in the values' Errors and copied to the record's (and
  // raise 1023 after, with the library-wide setting on).
  Long SaveDataExtensions(std::string_view ListOrTxnId = {});
  // Adds the values of the record and of its child records that wait to be saved to `batch`.
  void AddDataExtChanges(detail::DataExtBatch& batch);
  // Copies the failures of the record's values (and its lines') in the last save to its Errors;
  // returns how many there were.
  Long ReportDataExtFailures();
  // Where the record's values are kept: its kind, its ListID or TxnID, a line's TxnLineID.
  virtual DataExtTarget DataExtTargetOf() const { return {decl_->objectType, {}, {}}; }

  // The key a collection files the record under; empty: the record is held without a key.
  virtual KeyParts CollectionKeyParts() const { return {}; }
  // The record that owns this one (an aggregate's, a line's owner); null for a record of its own.
  RecordCore* Owner() const { return owner_; }
  // Called once a child record joins its owner's list.
  virtual void AttachTo(RecordCore& /*owner*/) {}

 protected:
  // --- typed access for the record classes' accessors --------------------------------------------
  std::string_view TextView(FieldId id) const;
  std::string Text(FieldId id) const { return std::string(TextView(id)); }
  // A flag; while unset, its declared default (else `fallback`).
  bool Bool(FieldId id, bool fallback = false) const;
  std::int64_t Int(FieldId id) const;
  Currency Amount(FieldId id) const;
  double Number(FieldId id) const;
  Date DateValue(FieldId id) const;
  Integer EnumCode(FieldId id) const;
  zkListObjectRef Ref(FieldId id) const;
  std::string_view RefFullName(FieldId id) const;
  std::string_view RefListID(FieldId id) const;

  // Setters: the hook first (1002 for a field fixed after creation, a line's guards), then the value;
  // setting one field of a choice clears the others.
  void SetText(FieldId id, std::string_view value);
  void SetBool(FieldId id, bool value);
  void SetInt(FieldId id, std::int64_t value);
  void SetAmount(FieldId id, Currency value);
  void SetNumber(FieldId id, double value);
  void SetDate(FieldId id, Date value);
  // An enumeration code; one the catalogue lacks raises 1007.
  void SetEnum(FieldId id, Integer code);
  // A reference set by full name (its ListID is dropped), or whole.
  void SetRefName(FieldId id, std::string_view fullName);
  void SetRef(FieldId id, const zkListObjectRef& ref);
  // Takes a field out of the record, through the setter rules (a nested record or list goes with it).
  void Unset(FieldId id);

  // The hook run before every set; the default is the state rule.
  virtual void BeforeSet(FieldId id);
  // The state rule of every setter: New stays New; otherwise Dirty, or 1002 for a field fixed after
  // the record was added (the record stays as it was). A change of a nested record is a change of
  // its owner too: the owner's modify request carries it.
  void MarkChanged(bool fixedAfterAdd);
  void SetState(zqEnumObjectState state) { state_ = state; }
  // Elements the declaration does not cover; true when taken.
  virtual bool ReadOwn(std::string_view /*name*/, const DomNode& /*node*/) { return false; }
  // Run when a read is done (the record is Clean).
  virtual void AfterRead() {}
  // The fields declared with field::Own: the record reads one element of the field (a repeated one
  // comes once per element), writes the field in the form of the context, gives its text and takes
  // it from text (the defaults skip, write nothing, give nothing and raise 1030).
  virtual void ReadOwnField(FieldId /*id*/, const DomNode& /*node*/) {}
  virtual void WriteOwnField(xmlBldr& /*b*/, FieldId /*id*/, const WriteContext& /*context*/) const {}
  virtual std::string OwnFieldText(FieldId /*id*/) const { return {}; }
  virtual void SetOwnFieldText(FieldId id, std::string_view text);
  // The list a reference without a list of its own points into (a parent's): the record's list.
  virtual zqEnumListType OwnList() const { return zqListTypeNone; }

 private:
  bool ReadField(FieldId id, const DomNode& node);
  void WriteField(xmlBldr& b, FieldId id, const WriteContext& context) const;
  bool RuleFails(const Rule& rule, ValidateContext& context, int& code);
  void ValidateNested(const Rule& rule, zkErrors& errors, ValidateContext& context);
  void AfterSet(FieldId id);
  // Takes a value out, freeing a nested record or list the field owns.
  void EraseValue(FieldId id);
  // Whether a field other than `id` of its choice holds a value; its id in `other`.
  bool ChoiceTaken(FieldId id, FieldId& other) const;
  bool IsEmptyValue(FieldId id) const;
  // The record's data extensions, kept in a slot of their own once there are any.
  detail::RecordDataExt* DataExtHeld() const;
  detail::RecordDataExt& DataExtHolder();

  friend class ChildListBase;

  const RecordDecl* decl_;
  RecordCore* owner_ = nullptr;
  ValueStore values_;
  zqEnumObjectState state_ = zqObjectStateNew;
  std::unique_ptr<zkErrors> errors_;
  std::unique_ptr<Variant> userData_;
};

template <class F>
void RecordCore::ForEachReference(F&& visit) const {
  for (const Rule& r : decl_->rules) {
    if (r.kind != RuleKind::Exists) continue;
    const std::string_view name = RefFullName(r.field);
    if (name.empty() || FailsLength(r.field, name)) continue;
    const zqEnumListType list = r.list != zqListTypeNone ? r.list : OwnList();
    // A visitor that takes a third argument is told the element a lookup must also bring.
    if constexpr (std::is_invocable_v<F&, zqEnumListType, std::string_view, std::string_view>)
      visit(list, name, r.alike != kNoField ? decl_->Field(r.alike).tag : std::string_view());
    else
      visit(list, name);
  }
  ForEachNested([&](const RecordCore& nested) { nested.ForEachReference(visit); });
}

// Length in characters of UTF-8 text.
std::size_t TextLength(std::string_view utf8);

}  // namespace brenvale
