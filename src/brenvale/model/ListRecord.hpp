#pragma once
// The list identity on the record core: ListID, names, parent and full name, the zkListObject and
// zkBase faces, and the facts a list kind declares beside its fields (its list, how a collection
// files it, which queries QuickBooks takes for it).
#include <concepts>
#include <memory>
#include <string>
#include <string_view>

#include "brenvale/model/BaseRecord.hpp"
#include "brenvale/model/zkListObject.hpp"
#include "brenvale/model/zkListObjectRefs.hpp"

namespace brenvale {

// Whether a record's name is written: as its kind's facts say (an employee's goes to the online
// edition only), else always.
bool ListNameWritten(const WriteContext& context, const RecordCore& record);

// The fields of every list record, at the same ids in every list kind's table.
struct ListBase {
  static constexpr FieldDef ListID = field::Text("ListID");
  static constexpr FieldDef TimeCreated = field::DateTime("TimeCreated");
  static constexpr FieldDef TimeModified = field::DateTime("TimeModified");
  static constexpr FieldDef EditSequence = field::Text("EditSequence");
  static constexpr FieldDef Name = field::Text("Name").When(&ListNameWritten);
  static constexpr FieldDef FullName = field::Text("FullName");
  static constexpr FieldDef IsActive = field::Bool("IsActive").Default(true);
  static constexpr FieldDef ParentRef = field::OwnRef("ParentRef");
  static constexpr FieldDef Sublevel = field::Int("Sublevel");
};

inline constexpr auto kListBaseFields = Fields(ListBase::ListID, ListBase::TimeCreated, ListBase::TimeModified,
                                               ListBase::EditSequence, ListBase::Name, ListBase::FullName,
                                               ListBase::IsActive, ListBase::ParentRef, ListBase::Sublevel);

// A list kind's field table: the base fields, then its own.
template <std::same_as<FieldDef>... F>
consteval auto ListFields(const F&... own) {
  return Extend(kListBaseFields, own...);
}

// The elements a list kind reads: the base elements in the order QuickBooks writes them, then its
// own (given in their order).
template <std::size_t N, std::same_as<FieldDef>... F>
consteval auto ListRead(const FieldTable<N>& table, const F&... own) {
  return Join(table.Order(ListBase::ListID, ListBase::TimeCreated, ListBase::TimeModified, ListBase::EditSequence,
                          ListBase::Name, ListBase::FullName, ListBase::IsActive, ListBase::ParentRef,
                          ListBase::Sublevel),
              table.Order(own...));
}

// How a collection files a list record.
enum class ListKey : std::uint8_t { Name, FullName, ListID };

// The queries QuickBooks takes for a list kind.
enum ListQueries : std::uint8_t {
  kQueryNone = 0,
  kQueryByListID = 1,     // ListID
  kQueryByFullName = 2,   // FullName
  kQueryFilters = 4,      // MaxReturned, ActiveStatus, modified dates, name filters
  kQueryDoneStatus = 8,   // DoneStatus after the filters (to-dos: QuickBooks answers open ones only by default)
  kQueryAll = kQueryByListID | kQueryByFullName | kQueryFilters,
};

struct ListFacts {
  zqEnumListType listType = zqListTypeNone;
  std::string_view collectionLabel{};  // of the collection's errors, when it differs from the record's
  bool hierarchical = false;
  ListKey key = ListKey::Name;
  FieldId nameField = kListBaseFields.Id(ListBase::Name);  // the field Name() answers
  std::uint8_t queries = kQueryAll;
  bool iterates = false;     // the query pages through iterators (qbXML 5.0 on)
  bool addable = true;       // QuickBooks has an Add request for the kind
  bool deletable = true;     // "ListDelType" takes the kind
  bool outsideUS = false;    // the requests exist only in editions outside the US
  bool modifiedByName = false;  // a Mod names the record by its own elements, not ListID and EditSequence
  WriteGate nameGate = nullptr;  // when set, the name is written only where it says so
};

class ListRecord : public BaseRecord, public zkListObject {
 public:
  // The ids of the base fields, the same in every list kind.
  static constexpr FieldId kListID = kListBaseFields.Id(ListBase::ListID);
  static constexpr FieldId kTimeCreated = kListBaseFields.Id(ListBase::TimeCreated);
  static constexpr FieldId kTimeModified = kListBaseFields.Id(ListBase::TimeModified);
  static constexpr FieldId kEditSequence = kListBaseFields.Id(ListBase::EditSequence);
  static constexpr FieldId kName = kListBaseFields.Id(ListBase::Name);
  static constexpr FieldId kFullName = kListBaseFields.Id(ListBase::FullName);
  static constexpr FieldId kIsActive = kListBaseFields.Id(ListBase::IsActive);
  static constexpr FieldId kParentRef = kListBaseFields.Id(ListBase::ParentRef);
  static constexpr FieldId kSublevel = kListBaseFields.Id(ListBase::Sublevel);

  explicit ListRecord(const RecordDecl& decl);
  ~ListRecord() override;

  const ListFacts& Facts() const { return *Decl().list; }

  zqEnumListObjectType ObjectType() const override { return BaseRecord::ObjectType(); }
  Long FromDom(const DomNode& obj) override { return BaseRecord::FromDom(obj); }

  // --- zkListObject ---------------------------------------------------------------------------
  std::string ListID() const override { return Text(kListID); }
  std::string Name() const override { return Text(Facts().nameField); }
  std::string CollectionKey() const override { return CollectionKeyParts().Joined(); }
  zkErrors& Errors() override { return RecordCore::Errors(); }
  bool SupportsChildren() const override { return Facts().hierarchical; }
  std::string Parent() const override { return std::string(RefFullName(kParentRef)); }
  zkListObjectRefs& Children() override;
  // Forgets the children's references (kept only for records that have children).
  void ClearChildren() { children_.reset(); }
  std::string FullName() const override;
  Integer Sublevel() const override { return static_cast<Integer>(Int(kSublevel)); }
  zqEnumObjectState ObjectState() const override { return RecordCore::ObjectState(); }
  bool Validate() override { return RecordCore::Validate(); }
  using RecordCore::Validate;

  // --- what every list record offers -----------------------------------------------------------
  void Name(std::string_view value) { SetText(Facts().nameField, value); }
  bool IsActive() const { return Bool(kIsActive); }
  void IsActive(bool value) { SetBool(kIsActive, value); }
  Date TimeCreated() const { return DateValue(kTimeCreated); }
  Date TimeModified() const { return DateValue(kTimeModified); }
  std::string EditSequence() const { return Text(kEditSequence); }
  const zkErrors& Errors() const { return RecordCore::Errors(); }

  KeyParts CollectionKeyParts() const override;
  // ListID and EditSequence ahead of a Mod body, unless the kind is modified by name.
  void WriteLead(xmlBldr& b, const WriteContext& context) const override;

 protected:
  zqEnumListType OwnList() const override { return Facts().listType; }

 private:
  std::unique_ptr<zkListObjectRefs> children_;
};

// A list record with a parent: its full name is the parent's full name, ":" and its own name.
class HierarchicalRecord : public ListRecord {
 public:
  using ListRecord::ListRecord;
  using ListRecord::Parent;
  // Sets the parent by its full name (empty: top level).
  void Parent(std::string_view fullName) { SetRefName(kParentRef, fullName); }
  zkListObjectRef ParentRef() const { return Ref(kParentRef); }
};

}  // namespace brenvale
