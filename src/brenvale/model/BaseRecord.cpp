#include "brenvale/model/BaseRecord.hpp"

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/Enumerations.hpp"
#include "brenvale/model/DataExtensions.hpp"
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

void BaseRecord::WriteLead(xmlBldr& b, const WriteContext& context) const {
  if (context.form != Form::Mod) return;
  b.CreateElement(Decl().Field(idField_).tag, TextView(idField_));
  b.CreateElement(Decl().Field(sequenceField_).tag, TextView(sequenceField_));
}

Long BaseRecord::XMLInsert(xmlBldr& cxmlbldr) {
  WriteRequestBody(*this, cxmlbldr, WriteContext::OfSession(Form::Add));
  return 0;
}

Long BaseRecord::XMLModify(xmlBldr& cxmlbldr) {
  WriteRequestBody(*this, cxmlbldr, WriteContext::OfSession(Form::Mod));
  return 0;
}

Long BaseRecord::XMLQueryRs(xmlBldr& cxmlbldr) {
  // The record in response form: every element it holds, in the order QuickBooks writes them.
  WriteBody(cxmlbldr, WriteContext::OfSession(Form::Ret));
  // Then its custom fields, last as QuickBooks answers them: QuickBooks' own, then the application's.
  for (const DataExtensions* fields : {FindCustomFields(), FindApplicationFields()}) {
    if (!fields) continue;
    for (const DataExtension& value : *fields) {
      if (!value.HasValue()) continue;
      cxmlbldr.OpenAggregateOnly("DataExtRet");
      cxmlbldr.CreateElement("OwnerID", value.OwnerId());
      cxmlbldr.CreateElement("DataExtName", value.Name());
      cxmlbldr.CreateElement("DataExtType", EnumCatalogue(zqeDataExtDataTypes).XMLTagOf(value.DataType()));
      cxmlbldr.CreateElement("DataExtValue", value.ValueText());
      cxmlbldr.EndAggregate("DataExtRet");
    }
  }
  return 0;
}

Long BaseRecord::FromDom(const DomNode& obj) {
  ReadFrom(obj);
  return 0;
}

}  // namespace brenvale
