#include "brenvale/lists/Template.hpp"

namespace brenvale {
namespace {
struct F {
  static constexpr FieldDef TemplateType = field::Text("TemplateType");
};
constexpr auto kFields = ListFields(F::TemplateType);
constexpr auto kRead = ListRead(kFields, F::TemplateType);
// The template query takes no ListID, FullName or filter, and "ListDelType" does not name templates.
constexpr ListFacts kFacts{
    .listType = zqListTypeTemplate, .queries = kQueryNone, .addable = false, .deletable = false};
constexpr RecordDecl kDecl{.label = "Template",
                           .xmlName = "Template",
                           .objectType = zqObjectTypeTemplate,
                           .fields = kFields.fields,
                           .read = kRead,
                           .modRefusal = "XMLModify not supported",
                           .list = &kFacts};
}  // namespace

const RecordDecl& Template::Declaration() { return kDecl; }

std::string Template::TemplateType() const { return Text(kFields.Id(F::TemplateType)); }

}  // namespace brenvale
