#pragma once
// The shared body of every list record: values held by field id as the kind's schema declares
// them, the New/Clean/Dirty state, reading from a Ret element, writing add and modify bodies,
// and the declared validation rules. A record class adds only its accessors and its own rules.
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "brenvale/core/Currency.hpp"
#include "brenvale/core/Date.hpp"
#include "brenvale/core/zkErrors.hpp"
#include "brenvale/model/RecordSchema.hpp"
#include "brenvale/model/zkListObject.hpp"
#include "brenvale/model/zkListObjectRef.hpp"
#include "brenvale/model/zkListObjectRefs.hpp"
#include "brenvale/qbxml/zkBase.hpp"

namespace brenvale {

using FieldValue = std::variant<std::monostate, std::string, bool, std::int64_t, Currency, double, Date,
                                zkListObjectRef>;

class ListRecord : public zkBase, public zkListObject {
 public:
  explicit ListRecord(const RecordSchema& schema);

  // --- zkBase / zkListObject ----------------------------------------------------------------
  Long XMLInsert(xmlBldr& cxmlbldr) override;
  Long XMLQueryRs(xmlBldr& cxmlbldr) override;
  Long XMLModify(xmlBldr& cxmlbldr) override;
  zqEnumListObjectType ObjectType() const override { return schema_.Decl().objectType; }
  Long FromDom(const DomNode& obj) override;
  const std::string& ListID() const override { return Text(kListID); }
  const std::string& Name() const override { return Text(schema_.Decl().nameField); }
  std::string CollectionKey() const override;
  zkErrors& Errors() override { return errors_; }
  bool SupportsChildren() const override { return schema_.Decl().hierarchical; }
  std::string Parent() const override;
  zkListObjectRefs& Children() override { return children_; }
  std::string FullName() const override;
  Integer Sublevel() const override { return static_cast<Integer>(Int(kSublevel)); }
  zqEnumObjectState ObjectState() const override { return state_; }
  bool Validate() override;

  // --- what every list record offers -------------------------------------------------------
  void Name(std::string value) { SetText(schema_.Decl().nameField, std::move(value)); }
  bool IsActive() const { return Bool(kIsActive, true); }
  void IsActive(bool value) { SetBool(kIsActive, value); }
  Date TimeCreated() const { return DateValue(kTimeCreated); }
  Date TimeModified() const { return DateValue(kTimeModified); }
  const std::string& EditSequence() const { return Text(kEditSequence); }
  Variant& UserData() { return userData_; }
  const zkErrors& Errors() const { return errors_; }
  const RecordSchema& Schema() const { return schema_; }
  // The class label of the record's errors ("JobType").
  const std::string& Label() const { return schema_.Label(); }

  // Generic access by field, for tools and tests that walk the schema.
  const FieldValue& Value(FieldId id) const { return values_.at(id); }
  // Sets a field from qbXML-style text (as FromDom would read it), through the setter rules.
  void SetFromText(FieldId id, std::string_view text);
  // The field as qbXML-style text (empty when unset).
  std::string ValueText(FieldId id) const;

 protected:
  // Typed access for the record classes' accessors.
  const std::string& Text(FieldId id) const;
  bool Bool(FieldId id, bool fallback = false) const;
  std::int64_t Int(FieldId id) const;
  Currency Amount(FieldId id) const;
  double Number(FieldId id) const;
  Date DateValue(FieldId id) const;
  const zkListObjectRef& Ref(FieldId id) const;

  // Setters: mark the state first (1002 for a field fixed after creation), then store.
  void SetText(FieldId id, std::string value) { Set(id, FieldValue(std::move(value))); }
  void SetBool(FieldId id, bool value) { Set(id, FieldValue(value)); }
  void SetInt(FieldId id, std::int64_t value) { Set(id, FieldValue(value)); }
  void SetAmount(FieldId id, Currency value) { Set(id, FieldValue(value)); }
  void SetNumber(FieldId id, double value) { Set(id, FieldValue(value)); }
  void SetDate(FieldId id, Date value) { Set(id, FieldValue(value)); }
  // A reference set by full name (its ListID is dropped).
  void SetRefName(FieldId id, std::string fullName);
  void SetRef(FieldId id, zkListObjectRef ref) { Set(id, FieldValue(std::move(ref))); }
  void Set(FieldId id, FieldValue value);

  // The state rule of every setter: New stays New; otherwise Dirty, or 1002 for a fixed field.
  void MarkChanged(bool fixedAfterAdd);

  // A record's own validation check, called for its Custom rules in their place.
  virtual void CheckRule(int /*check*/, zkErrors& /*errors*/) {}
  // A record's own element reader; true when it took the element.
  virtual bool ReadElement(std::string_view /*name*/, const DomNode& /*node*/) { return false; }
  // Writes one field as the add or modify body wants it; records override for special elements.
  virtual void WriteField(xmlBldr& b, FieldId id, bool modify);

  bool PassesGate(Currency minVersion) const;

 private:
  void ReadValue(FieldId id, const DomNode& node);

  const RecordSchema& schema_;
  std::vector<FieldValue> values_;
  std::vector<bool> changed_;
  zqEnumObjectState state_ = zqObjectStateNew;
  zkErrors errors_;
  zkListObjectRefs children_;
  Variant userData_;
};

// Length in characters of UTF-8 text.
std::size_t TextLength(std::string_view utf8);

}  // namespace brenvale
