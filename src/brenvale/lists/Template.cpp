#include "brenvale/lists/Template.hpp"

namespace brenvale {
namespace {
enum : FieldId { kTemplateType = kFirstCustomField };
}  // namespace

const RecordSchema& Template::StaticSchema() {
  static const RecordSchema schema([] {
    SchemaSpec s;
    s.label = "Template";
    s.xmlName = "Template";
    s.objectType = zqObjectTypeTemplate;
    s.listType = zqListTypeTemplate;
    s.fields = {{kTemplateType, "TemplateType", FieldKind::Text}};
    s.read = {"TemplateType"};
    s.modRefusal = "XMLModify not supported";
    return s;
  }());
  return schema;
}

Template::Template() : ListRecord(StaticSchema()) {}

const std::string& Template::TemplateType() const { return Text(kTemplateType); }

}  // namespace brenvale
