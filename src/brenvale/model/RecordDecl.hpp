#pragma once
// What a record kind declares about itself, once, as compile-time data: its field table, which of
// the fields its Add, Mod and Read elements are and in which order, its validation rules, and
// whether QuickBooks lets it be modified. RecordCore reads, writes and validates every kind from
// this; a record class adds only its accessors and what is truly its own.
//
//   struct F { static constexpr FieldDef Notes = field::Text("Notes"); ... };
//   constexpr auto kFields = ListFields(F::Notes, F::IsDone);   // a list kind: its base fields first
//   constexpr auto kAdd = kFields.Order(F::Notes, ListBase::IsActive, F::IsDone);
//   constexpr Rule kRules[] = {kFields.NotEmpty(F::Notes, 2500, "Notes")};
//
// A field that is not in the table, or appears twice in an order, fails to compile.
#include <array>
#include <concepts>
#include <cstddef>
#include <span>
#include <string_view>

#include "brenvale/model/FieldDef.hpp"
#include "brenvale/model/WriteContext.hpp"

namespace brenvale {

class zkErrors;
class RefCache;
struct ListFacts;
struct TxnFacts;

// What validation may consult: the reference cache, and whether it may ask QuickBooks for names it
// does not know yet (false when there is no connection).
struct ValidateContext {
  RefCache* refs = nullptr;
  bool mayFetch = false;

  // The context of this thread's connection.
  static ValidateContext OfSession();
};

enum class RuleKind : std::uint8_t {
  NotEmpty,   // an empty value fails
  MaxLength,  // a value of limit+1 characters or more fails
  Exists,     // the record a reference names must exist (in a master collection or in QuickBooks)
  Own,        // the record's own check
  Nested,     // the rules of the records an aggregate or a list of child records holds
};

// A record's own check: adds its entries to `errors`.
using OwnCheck = void (*)(RecordCore& record, zkErrors& errors, ValidateContext& context);

struct Rule {
  RuleKind kind = RuleKind::NotEmpty;
  FieldId field = kNoField;
  std::uint32_t limit = 0;      // MaxLength
  int code = 0;                 // the error added when the rule fails; 0: its own text, with no number
  std::string_view label{};     // the error's Field (Nested: when given, the Field of every entry it adds)
  std::string_view message{};   // empty: the code's own message
  // Exists: the list searched (none: the field's); the Ret elements the record may be (empty: any),
  // and the code added when it is another kind; whether an empty value fails, and whether a
  // reference that cannot be looked up (no connection) fails.
  zqEnumListType list = zqListTypeNone;
  std::span<const std::string_view> accepted{};
  int otherKindCode = 0;
  bool emptyFails = false;
  bool uncheckedFails = false;
  // Exists: a field whose value the record found must share, in its element of the same tag, and
  // the code added when it does not.
  FieldId alike = kNoField;
  int alikeCode = 0;
  OwnCheck check = nullptr;

  constexpr Rule Message(std::string_view text) const {
    Rule r = *this;
    r.message = text;
    return r;
  }
  constexpr Rule OfKinds(std::span<const std::string_view> rets, int otherCode) const {
    if (kind != RuleKind::Exists) throw "only a reference rule checks the kind of what it finds";
    Rule r = *this;
    r.accepted = rets;
    r.otherKindCode = otherCode;
    return r;
  }
  // The record found must be of the same sort as this one: hold the same value as this record's
  // field `id` (a sub-account's parent is an account of the sub-account's type); `otherCode` when not.
  constexpr Rule Alike(FieldId id, int otherCode) const {
    if (kind != RuleKind::Exists) throw "only a reference rule compares what it finds";
    Rule r = *this;
    r.alike = id;
    r.alikeCode = otherCode;
    return r;
  }
  constexpr Rule EmptyFails() const {
    Rule r = *this;
    r.emptyFails = true;
    return r;
  }
  constexpr Rule UncheckedFails() const {
    Rule r = *this;
    r.uncheckedFails = true;
    return r;
  }
};

namespace rule {
template <class M>
struct MemberOf;
template <class C>
struct MemberOf<void (C::*)(zkErrors&, ValidateContext&)> {
  using Class = C;
};

// A check that is the record's own member function: void Check(zkErrors&, ValidateContext&).
template <auto Member>
constexpr Rule Own() {
  using Class = typename MemberOf<decltype(Member)>::Class;
  return Rule{.kind = RuleKind::Own, .check = [](RecordCore& record, zkErrors& errors, ValidateContext& context) {
                (static_cast<Class&>(record).*Member)(errors, context);
              }};
}
}  // namespace rule

// Creates a child record or a nested aggregate of a declaration.
using RecordFactory = RecordCore* (*)(const RecordDecl& form);

struct RecordDecl {
  std::string_view label;     // the class label of errors, raises and traces ("JobType")
  std::string_view xmlName;   // "JobType": requests JobTypeAddRq ..., elements JobTypeAdd, JobTypeRet
  zqEnumListObjectType objectType = zqObjectTypeNone;
  std::span<const FieldDef* const> fields;  // a field's id is its position
  std::span<const FieldId> add;   // the Add body, in order
  std::span<const FieldId> mod;   // the Mod body after the identity elements, in order
  std::span<const FieldId> read;  // the elements read, in the order QuickBooks writes them
  std::span<const Rule> rules;    // validation, in order
  std::string_view modRefusal{};  // when set, writing a Mod raises 1003 with this text
  std::string_view addTag{};      // a child record's element in an Add ("InvoiceLineAdd")
  std::string_view modTag{};      // and in a Mod ("InvoiceLineMod")
  OwnerFamily family = OwnerFamily::None;  // a line form: the family of owners that writes it
  RecordFactory make = nullptr;   // for aggregates and child records
  const ListFacts* list = nullptr;
  const TxnFacts* txn = nullptr;
  // The kind carries data extensions (custom fields): QuickBooks answers them as "DataExtRet"
  // elements, and its query takes "OwnerID". A kind that does is one line: `.dataExt = true`.
  bool dataExt = false;

  const FieldDef& Field(FieldId id) const { return *fields[id]; }
  std::span<const FieldId> Order(Form form) const {
    return form == Form::Add ? add : form == Form::Mod ? mod : read;
  }
  // The field read from an element of that name, or kNoField. `cursor` remembers where the last
  // one was found: elements come in the declared order, so the next one is usually there.
  FieldId FindRead(std::string_view tag, std::size_t& cursor) const;
  // The field with that tag, or kNoField.
  FieldId FindTag(std::string_view tag) const;
};

// A kind's field table, and the compile-time checks of what refers to it.
template <std::size_t N>
struct FieldTable {
  static_assert(N < kNoField, "a kind has at most 254 fields");
  std::array<const FieldDef*, N> fields{};

  // A field's id; a field that is not in the table fails to compile.
  consteval FieldId Id(const FieldDef& f) const { return IndexOf(f); }
  constexpr FieldId IndexOf(const FieldDef& f) const {
    for (std::size_t i = 0; i < N; ++i)
      if (fields[i] == &f) return static_cast<FieldId>(i);
    throw "the field is not in this kind's table";
  }

  // An order of fields: each must be in the table, none twice, the fields of one choice together.
  template <std::same_as<FieldDef>... F>
  consteval std::array<FieldId, sizeof...(F)> Order(const F&... f) const {
    std::array<FieldId, sizeof...(F)> ids{IndexOf(f)...};
    for (std::size_t i = 0; i < ids.size(); ++i)
      for (std::size_t j = i + 1; j < ids.size(); ++j) {
        if (ids[i] == ids[j]) throw "a field appears twice in an order";
        if (fields[ids[i]]->tag == fields[ids[j]]->tag) throw "two fields of an order share a tag";
        const auto choice = fields[ids[i]]->choice;
        if (choice == 0 || fields[ids[j]]->choice != choice) continue;
        for (std::size_t k = i + 1; k < j; ++k)
          if (fields[ids[k]]->choice != choice) throw "the fields of a choice stand together in an order";
      }
    return ids;
  }

  consteval Rule NotEmpty(const FieldDef& f, int code, std::string_view label) const {
    return Rule{.kind = RuleKind::NotEmpty, .field = IndexOf(f), .code = code, .label = label};
  }
  consteval Rule MaxLength(const FieldDef& f, std::uint32_t limit, int code, std::string_view label) const {
    const ValueKind k = f.kind;
    if (k != ValueKind::Text && k != ValueKind::Ref) throw "a length limit is for texts and references";
    return Rule{.kind = RuleKind::MaxLength, .field = IndexOf(f), .limit = limit, .code = code, .label = label};
  }
  // The rules of the nested records a field holds (an aggregate, or each of a list of child records)
  // run as the owner's: their entries join the owner's list, under `label` when one is given; with a
  // `code`, one entry of that code stands for all of them.
  consteval Rule NestedRules(const FieldDef& f, std::string_view label = {}, int code = 0) const {
    if (f.kind != ValueKind::Aggregate && f.kind != ValueKind::Children) throw "only nested records have rules";
    return Rule{.kind = RuleKind::Nested, .field = IndexOf(f), .code = code, .label = label};
  }
  // The record a reference names must exist in its list.
  consteval Rule Exists(const FieldDef& f, int code, std::string_view label) const {
    if (f.kind != ValueKind::Ref) throw "only a reference names a record that must exist";
    return Rule{.kind = RuleKind::Exists, .field = IndexOf(f), .code = code, .label = label, .list = f.refList};
  }
};

// A field table of the given fields, in that order (the order QuickBooks writes them in a Ret).
template <std::same_as<FieldDef>... F>
consteval FieldTable<sizeof...(F)> Fields(const F&... f) {
  FieldTable<sizeof...(F)> table{{&f...}};
  for (std::size_t i = 0; i < table.fields.size(); ++i)
    for (std::size_t j = i + 1; j < table.fields.size(); ++j)
      if (table.fields[i] == table.fields[j]) throw "a field appears twice in a table";
  return table;
}

// A table of `base`'s fields followed by the given ones: the identity's fields keep their ids.
template <std::size_t N, std::same_as<FieldDef>... F>
consteval FieldTable<N + sizeof...(F)> Extend(const FieldTable<N>& base, const F&... f) {
  FieldTable<N + sizeof...(F)> table{};
  for (std::size_t i = 0; i < N; ++i) table.fields[i] = base.fields[i];
  const std::array<const FieldDef*, sizeof...(F)> own{&f...};
  for (std::size_t i = 0; i < sizeof...(F); ++i) table.fields[N + i] = own[i];
  for (std::size_t i = 0; i < table.fields.size(); ++i)
    for (std::size_t j = i + 1; j < table.fields.size(); ++j)
      if (table.fields[i] == table.fields[j]) throw "a field appears twice in a table";
  return table;
}

// An order of a base table's ids followed by more.
template <std::size_t N, std::size_t M>
consteval std::array<FieldId, N + M> Join(const std::array<FieldId, N>& a, const std::array<FieldId, M>& b) {
  std::array<FieldId, N + M> out{};
  for (std::size_t i = 0; i < N; ++i) out[i] = a[i];
  for (std::size_t i = 0; i < M; ++i) out[N + i] = b[i];
  for (std::size_t i = 0; i < out.size(); ++i)
    for (std::size_t j = i + 1; j < out.size(); ++j)
      if (out[i] == out[j]) throw "a field appears twice in an order";
  return out;
}

}  // namespace brenvale
