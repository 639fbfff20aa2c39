#pragma once
// A record QuickBooks keeps on its own (a list record, a transaction): the record core with the
// zkBase face the request machinery calls, and the identity elements it writes ahead of a Mod body.
#include "brenvale/model/RecordCore.hpp"
#include "brenvale/qbxml/zkBase.hpp"

namespace brenvale {

class BaseRecord : public RecordCore, public zkBase {
 public:
  // `idField` and `sequenceField` are the record's identity (ListID or TxnID) and EditSequence.
  BaseRecord(const RecordDecl& decl, FieldId idField, FieldId sequenceField)
      : RecordCore(decl), idField_(idField), sequenceField_(sequenceField) {}

  // --- zkBase ---------------------------------------------------------------------------------
  Long XMLInsert(xmlBldr& cxmlbldr) override;
  Long XMLQueryRs(xmlBldr& cxmlbldr) override;
  // Raises 1003 with the kind's refusal when QuickBooks cannot modify it.
  Long XMLModify(xmlBldr& cxmlbldr) override;
  zqEnumListObjectType ObjectType() const override { return Decl().objectType; }
  Long FromDom(const DomNode& obj) override;

  // The identity (ListID, TxnID) and EditSequence, ahead of a Mod body.
  void WriteLead(xmlBldr& b, const WriteContext& context) const override;
  // Its values are kept on the record's kind, under its ListID or TxnID.
  DataExtTarget DataExtTargetOf() const override {
    return {Decl().objectType, std::string(TextView(idField_)), {}};
  }

 private:
  FieldId idField_;
  FieldId sequenceField_;
};

// Writes the body of a record's Add or Mod request (the refusal of a kind QuickBooks cannot modify
// is raised here), as zkBase and the collections' batches write it.
void WriteRequestBody(const RecordCore& record, xmlBldr& b, const WriteContext& context);

}  // namespace brenvale
