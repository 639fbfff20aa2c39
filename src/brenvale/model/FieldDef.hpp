#pragma once
// One field of a record kind, declared once as compile-time data: its qbXML tag, the kind of value,
// the qbXML version that introduced it, whether it is fixed once the record exists, the tag it takes
// in a modify request, the choice it belongs to, the condition for writing it, and for nested values
// the declaration of what they hold. A kind's field table, its Add, Mod and Read orders and its rules
// refer to these objects, never to tag texts: a misspelt field is a build error.
#include <cstdint>
#include <span>
#include <string_view>

#include "brenvale/core/Currency.hpp"
#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/core/Enumerations.hpp"

namespace brenvale {

class RecordCore;
struct RecordDecl;
struct WriteContext;

// A field's position in its kind's field table.
using FieldId = std::uint8_t;
inline constexpr FieldId kNoField = 0xFF;
// The slot a record keeps its data extensions in, beside its fields (a table has at most 254
// fields, ids 0 to 253).
inline constexpr FieldId kDataExtSlot = 0xFE;

enum class ValueKind : std::uint8_t {
  Text,       // written as given
  Bool,       // "true" / "false"
  Int,        // a whole number
  Amount,     // money: Currency, written "#######0.00"
  Price,      // a rate or percentage, kept as written, written "0000000.00000"
  Quantity,   // kept as written, written "0.000000"
  Date,       // "yyyy-mm-dd"
  DateTime,   // "yyyy-mm-ddTHh:Mm:Ss" from qbXML 2.0 on, a bare date below
  Enum,       // a code of an enumeration catalogue, written as its qbXML tag
  Ref,        // a reference aggregate: <TagRef><ListID/><FullName/></TagRef>
  Aggregate,  // one nested record declared by its own table (an address, a price block)
  Children,   // a repeated element, one child record each (transaction lines, group members)
  Own,        // kept, read and written by the record itself, in its declared place (a repeated value,
              // an element whose text in a modify request is computed)
};

// A qbXML version ("8.0" is {8, 0}); {0, 0}: every version.
struct QbxmlVersion {
  int major = 0;
  int minor = 0;
  constexpr bool Any() const { return major == 0 && minor == 0; }
  // The version as the number the session's version is compared with.
  constexpr Currency Number() const { return Currency::FromUnits((major * 10 + minor) * 1000LL); }
};

// Whether a field is written in the context; for example, only in editions that keep sales tax
// codes, or only on a line whose item is not a subtotal.
using WriteGate = bool (*)(const WriteContext&, const RecordCore&);

// A field whose element is named by the context (an address's state is "Province" in Canadian
// versions, "County" in British ones): the tag written in a context, and the other tags it is read
// from. Its declared tag is the one the schema of this library's version gives.
struct FieldTags {
  std::string_view (*pick)(const WriteContext&) = nullptr;
  std::span<const std::string_view> also{};
};

struct FieldDef {
  std::string_view tag;
  ValueKind kind = ValueKind::Text;
  QbxmlVersion since{};
  bool fixedAfterAdd = false;                 // setters raise 1002 once the record exists
  std::string_view modTag{};                  // an aggregate written under another tag in a Mod
  const RecordDecl& (*body)() = nullptr;      // Aggregate, Children: what the nested records hold
  zqEnumerationType enumType = zqeObjectState;  // Enum: the catalogue
  zqEnumListType refList = zqListTypeNone;    // Ref: the list referred to (none: the record's own)
  std::uint8_t choice = 0;                    // fields of one non-zero choice: one of them holds a value
  WriteGate gate = nullptr;                   // when set, the field is written only where it says so
  std::int8_t boolDefault = -1;               // Bool: the value while unset (0, 1), also written in an add
  const FieldTags* tags = nullptr;            // when set, the context names the element
  std::string_view clearTag{};                // Children: the flag a modify request sends for an emptied list
  std::string_view textDefault{};             // Text: the value while unset, also written in an add

  // The tag written in a context.
  std::string_view TagIn(const WriteContext& context) const { return tags ? tags->pick(context) : tag; }

  // --- modifiers, so that a declaration reads as a sentence --------------------------------------
  constexpr FieldDef Since(int major, int minor) const {
    FieldDef f = *this;
    f.since = {major, minor};
    return f;
  }
  constexpr FieldDef FixedAfterAdd() const {
    FieldDef f = *this;
    f.fixedAfterAdd = true;
    return f;
  }
  // The tag of a modify request ("SalesAndPurchaseMod"); only an aggregate has one.
  constexpr FieldDef InMod(std::string_view modifyTag) const {
    if (kind != ValueKind::Aggregate) throw "only an aggregate takes another tag in a modify request";
    FieldDef f = *this;
    f.modTag = modifyTag;
    return f;
  }
  // Fields of one choice: one of them holds a value. Setting one clears the others; an aggregate of a
  // choice is made only while no other field of its choice holds a value (1003 otherwise).
  constexpr FieldDef Choice(int group) const {
    if (group <= 0 || group > 255) throw "a choice is numbered from 1 to 255";
    FieldDef f = *this;
    f.choice = static_cast<std::uint8_t>(group);
    return f;
  }
  constexpr FieldDef When(WriteGate condition) const {
    FieldDef f = *this;
    f.gate = condition;
    return f;
  }
  constexpr FieldDef TagBy(const FieldTags& byContext) const {
    if (kind == ValueKind::Aggregate || kind == ValueKind::Children) throw "a nested record keeps its tag";
    FieldDef f = *this;
    f.tags = &byContext;
    return f;
  }
  // The flag ("ClearItemsInGroup") a modify request sends, true, when the record holds the list and it
  // is empty: QuickBooks keeps a list that a modify does not mention, and replaces one it does.
  constexpr FieldDef ClearedBy(std::string_view flag) const {
    if (kind != ValueKind::Children) throw "only a list of child records is cleared by a flag";
    FieldDef f = *this;
    f.clearTag = flag;
    return f;
  }
  // A flag's value while it is unset, written in an add request all the same (QuickBooks needs some
  // flags in every add: a new record is active unless said otherwise).
  constexpr FieldDef Default(bool value) const {
    if (kind != ValueKind::Bool) throw "only a flag has a default";
    FieldDef f = *this;
    f.boolDefault = value ? 1 : 0;
    return f;
  }
  // The same for a text QuickBooks needs in every add (a fixed asset was acquired "New" or "Old").
  constexpr FieldDef Default(std::string_view value) const {
    if (kind != ValueKind::Text || value.empty()) throw "only a text has a text default, and not an empty one";
    FieldDef f = *this;
    f.textDefault = value;
    return f;
  }
  // (A literal would otherwise take the flag's overload.)
  constexpr FieldDef Default(const char* value) const { return Default(std::string_view(value)); }
};

// The field kinds, as declarations write them: field::Text("Name"), field::Ref("ParentRef", ...).
namespace field {
constexpr FieldDef Text(std::string_view tag) { return {.tag = tag, .kind = ValueKind::Text}; }
constexpr FieldDef Bool(std::string_view tag) { return {.tag = tag, .kind = ValueKind::Bool}; }
constexpr FieldDef Int(std::string_view tag) { return {.tag = tag, .kind = ValueKind::Int}; }
constexpr FieldDef Amount(std::string_view tag) { return {.tag = tag, .kind = ValueKind::Amount}; }
constexpr FieldDef Price(std::string_view tag) { return {.tag = tag, .kind = ValueKind::Price}; }
constexpr FieldDef Quantity(std::string_view tag) { return {.tag = tag, .kind = ValueKind::Quantity}; }
constexpr FieldDef Date(std::string_view tag) { return {.tag = tag, .kind = ValueKind::Date}; }
constexpr FieldDef DateTime(std::string_view tag) { return {.tag = tag, .kind = ValueKind::DateTime}; }
constexpr FieldDef Enum(std::string_view tag, zqEnumerationType catalogue) {
  return {.tag = tag, .kind = ValueKind::Enum, .enumType = catalogue};
}
constexpr FieldDef Ref(std::string_view tag, zqEnumListType list) {
  if (tag.size() < 4 || tag.substr(tag.size() - 3) != "Ref") throw "a reference's tag ends in Ref";
  return {.tag = tag, .kind = ValueKind::Ref, .refList = list};
}
// A reference into the record's own list (a parent).
constexpr FieldDef OwnRef(std::string_view tag) { return Ref(tag, zqListTypeNone); }
// `body` answers the nested record's declaration ("&Address::Declaration").
constexpr FieldDef Aggregate(std::string_view tag, const RecordDecl& (*body)()) {
  return {.tag = tag, .kind = ValueKind::Aggregate, .body = body};
}
// Child records read from elements named `tag` ("InvoiceLineRet") and written as the Add or Mod tag
// of the form `body` answers ("InvoiceLineAdd", "InvoiceLineMod").
constexpr FieldDef Children(std::string_view tag, const RecordDecl& (*body)()) {
  return {.tag = tag, .kind = ValueKind::Children, .body = body};
}
// An element the record keeps, reads and writes itself (RecordCore's ReadOwnField, WriteOwnField,
// OwnFieldText and SetOwnFieldText); the declaration gives it its place among the others.
constexpr FieldDef Own(std::string_view tag) { return {.tag = tag, .kind = ValueKind::Own}; }
}  // namespace field

}  // namespace brenvale
