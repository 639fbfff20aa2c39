#pragma once
// What a record kind declares about itself, once, as data: its fields (qbXML tag, value kind,
// minimum qbXML version, fixed after creation), which of them its add, modify and read elements
// are and in which order, its validation rules, and whether QuickBooks lets it be modified.
// Generic code (ListRecord, ListCollection) does the rest.
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "brenvale/core/Currency.hpp"
#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/core/Enumerations.hpp"

namespace brenvale {

using FieldId = std::uint16_t;

enum class FieldKind : std::uint8_t {
  Text,      // std::string
  Bool,      // "true" / "false"
  Int,       // whole number
  Amount,    // Currency, written "#######0.00"
  Price,     // double, written "0000000.00000" (rates and percentages)
  Quantity,  // double, written "0.000000"
  Date,      // "yyyy-mm-dd"
  DateTime,  // "yyyy-mm-ddTHh:Mm:Ss" from qbXML 2.0 on
  Ref,       // a reference aggregate: <TagRef><ListID/><FullName/></TagRef>
  Enum,      // a code of an enumeration catalogue, written as its qbXML tag
};

// Fields every list record has, at fixed ids; a kind's own fields start at kFirstCustomField.
enum BaseField : FieldId {
  kListID = 0,
  kEditSequence,
  kTimeCreated,
  kTimeModified,
  kName,
  kFullName,
  kIsActive,
  kParentRef,
  kSublevel,
  kFirstCustomField,
};

struct FieldDef {
  FieldId id = 0;
  std::string tag;
  FieldKind kind = FieldKind::Text;
  Currency minVersion;                        // 0: every version
  bool fixedAfterAdd = false;                 // setters raise 1002 once the record exists
  zqEnumerationType enumType = zqeObjectState;  // for Enum fields
  zqEnumListType refList = zqListTypeNone;    // for Ref fields: the list referred to
};

enum class RuleKind : std::uint8_t {
  NotEmpty,   // an empty value fails
  MaxLength,  // a value of limit+1 characters or more fails
  Parent,     // the parent named must exist in the master collection of the same list (1010)
  Custom,     // the record's own check number `limit` (ListRecord::CheckRule)
};

struct Rule {
  RuleKind kind;
  std::string tag;        // the field's tag (empty for Custom)
  int limit = 0;          // MaxLength: the limit; Custom: the check's number
  int code = 0;           // error code added when the rule fails
  std::string label;      // the field label of the error entry
  std::string message;    // the message; empty for the code's table message
};

// How a collection files a record.
enum class RecordKey : std::uint8_t { Name, FullName, ListID };

// The declaration a record kind writes; tags in `add`, `mod` and `read` name its fields.
struct SchemaSpec {
  std::string label;  // the class label of errors and traces ("JobType", "CustomerMsg" ...)
  std::string collectionLabel;  // the label of the collection's errors, when it differs from `label`
  zqEnumListObjectType objectType = zqObjectTypeNone;
  zqEnumListType listType = zqListTypeNone;
  std::string xmlName;  // qbXML name of the kind ("JobType", "CustomerMsg"); its requests and Ret
  bool hierarchical = false;
  bool readsName = true;       // "Name" is among the elements read
  FieldId nameField = kName;   // the field that Name() answers
  RecordKey key = RecordKey::Name;
  std::vector<FieldDef> fields;         // the kind's own fields, ids from kFirstCustomField on
  std::vector<std::string> add;         // Add body, in order
  std::vector<std::string> mod;         // Mod body after "ListID" and "EditSequence", in order
  std::vector<std::string> read;        // elements read beyond the base ones
  std::string modRefusal;               // when set, a Mod request raises 1003 with this text
  std::vector<Rule> rules;              // validation, in order
  bool queryIterates = false;           // the kind's query takes iterators (qbXML 5.0 on)
};

class RecordSchema {
 public:
  explicit RecordSchema(SchemaSpec decl);

  const SchemaSpec& Decl() const { return spec_; }
  const std::string& Label() const { return spec_.label; }
  const std::string& CollectionLabel() const {
    return spec_.collectionLabel.empty() ? spec_.label : spec_.collectionLabel;
  }
  const std::string& XmlName() const { return spec_.xmlName; }
  const std::vector<FieldDef>& Fields() const { return fields_; }
  const FieldDef& Field(FieldId id) const { return fields_.at(id); }
  const std::vector<FieldId>& AddOrder() const { return add_; }
  const std::vector<FieldId>& ModOrder() const { return mod_; }
  // The field read from an element of that name, or -1.
  int ReadField(std::string_view tag) const;
  FieldId IdOf(std::string_view tag) const;

 private:
  SchemaSpec spec_;
  std::vector<FieldDef> fields_;
  std::vector<FieldId> add_;
  std::vector<FieldId> mod_;
  struct TagHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view s) const { return std::hash<std::string_view>{}(s); }
  };
  std::unordered_map<std::string, FieldId, TagHash, std::equal_to<>> read_;
};

}  // namespace brenvale
