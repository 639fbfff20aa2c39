#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

bool ListNameWritten(const WriteContext& context, const RecordCore& record) {
  const ListFacts* facts = record.Decl().list;
  return !facts || !facts->nameGate || facts->nameGate(context, record);
}

ListRecord::ListRecord(const RecordDecl& decl) : BaseRecord(decl, kListID, kEditSequence) {}

ListRecord::~ListRecord() = default;

zkListObjectRefs& ListRecord::Children() {
  if (!children_) children_ = std::make_unique<zkListObjectRefs>();
  return *children_;
}

KeyParts ListRecord::CollectionKeyParts() const {
  const ListFacts& facts = Facts();
  if (facts.key == ListKey::ListID) return {TextView(kListID)};
  const std::string_view name = TextView(facts.nameField);
  if (facts.hierarchical) {
    const std::string_view parent = RefFullName(kParentRef);
    if (!parent.empty()) return {parent, ":", name};
  }
  return {name};
}

void ListRecord::WriteLead(xmlBldr& b, const WriteContext& context) const {
  if (!Facts().modifiedByName) BaseRecord::WriteLead(b, context);
}

std::string ListRecord::FullName() const {
  if (!Facts().hierarchical) return Name();
  const std::string_view parent = RefFullName(kParentRef);
  if (parent.empty()) return Name();
  return std::string(parent).append(":").append(TextView(Facts().nameField));
}

}  // namespace brenvale
