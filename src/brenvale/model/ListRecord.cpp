#include "brenvale/model/ListRecord.hpp"

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace brenvale {

void WriteRequestBody(const RecordCore& record, xmlBldr& b, const WriteContext& context) {
  if (context.form == Form::Mod) {
    if (!record.Decl().modRefusal.empty())
      Raise(1003, "Brenvale: " + std::string(record.Label()), record.Decl().modRefusal);
    record.WriteLead(b, context);
  }
  record.WriteBody(b, context);
}

ListRecord::ListRecord(const RecordDecl& decl) : RecordCore(decl) {}

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

std::string ListRecord::FullName() const {
  if (!Facts().hierarchical) return Name();
  const std::string_view parent = RefFullName(kParentRef);
  if (parent.empty()) return Name();
  return std::string(parent).append(":").append(TextView(Facts().nameField));
}

void ListRecord::WriteLead(xmlBldr& b, const WriteContext& context) const {
  if (context.form != Form::Mod) return;
  b.CreateElement("ListID", TextView(kListID));
  b.CreateElement("EditSequence", TextView(kEditSequence));
}

Long ListRecord::XMLInsert(xmlBldr& cxmlbldr) {
  WriteRequestBody(*this, cxmlbldr, WriteContext::OfSession(Form::Add));
  return 0;
}

Long ListRecord::XMLModify(xmlBldr& cxmlbldr) {
  WriteRequestBody(*this, cxmlbldr, WriteContext::OfSession(Form::Mod));
  return 0;
}

Long ListRecord::XMLQueryRs(xmlBldr& cxmlbldr) {
  // The record in response form: every element it holds, in the order QuickBooks writes them.
  WriteBody(cxmlbldr, WriteContext::OfSession(Form::Ret));
  return 0;
}

Long ListRecord::FromDom(const DomNode& obj) {
  ReadFrom(obj);
  return 0;
}

}  // namespace brenvale
