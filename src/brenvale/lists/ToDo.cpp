#include "brenvale/lists/ToDo.hpp"

namespace brenvale {
namespace {
struct F {
  static constexpr FieldDef Notes = field::Text("Notes");
  static constexpr FieldDef IsDone = field::Bool("IsDone");
  static constexpr FieldDef ReminderDate = field::Date("ReminderDate");
};
constexpr auto kFields = ListFields(F::Notes, F::IsDone, F::ReminderDate);
constexpr auto kBody = kFields.Order(F::Notes, ListBase::IsActive, F::IsDone, F::ReminderDate);
constexpr auto kRead = ListRead(kFields, F::Notes, F::IsDone, F::ReminderDate);
constexpr Rule kRules[] = {kFields.NotEmpty(F::Notes, 2500, "Notes"), kFields.MaxLength(F::Notes, 4095, 2501, "Notes")};
// The to-do query has no FullName; without a DoneStatus QuickBooks answers open to-dos only.
constexpr ListFacts kFacts{.listType = zqListTypeToDo,
                           .key = ListKey::ListID,
                           .nameField = kFields.Id(F::Notes),
                           .queries = kQueryByListID | kQueryFilters | kQueryDoneStatus};
constexpr RecordDecl kDecl{.label = "ToDo",
                           .xmlName = "ToDo",
                           .objectType = zqObjectTypeToDo,
                           .fields = kFields.fields,
                           .add = kBody,
                           .mod = kBody,
                           .read = kRead,
                           .rules = kRules,
                           .list = &kFacts};
}  // namespace

const RecordDecl& ToDo::Declaration() { return kDecl; }

std::string ToDo::Notes() const { return Text(kFields.Id(F::Notes)); }
void ToDo::Notes(std::string_view value) { SetText(kFields.Id(F::Notes), value); }
bool ToDo::IsDone() const { return Bool(kFields.Id(F::IsDone)); }
void ToDo::IsDone(bool value) { SetBool(kFields.Id(F::IsDone), value); }
Date ToDo::ReminderDate() const { return DateValue(kFields.Id(F::ReminderDate)); }
void ToDo::ReminderDate(Date value) { SetDate(kFields.Id(F::ReminderDate), value); }

}  // namespace brenvale
