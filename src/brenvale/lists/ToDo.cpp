#include "brenvale/lists/ToDo.hpp"

namespace brenvale {
namespace {
enum : FieldId { kNotes = kFirstCustomField, kIsDone, kReminderDate };
}  // namespace

const RecordSchema& ToDo::StaticSchema() {
  static const RecordSchema schema([] {
    SchemaSpec s;
    s.label = "ToDo";
    s.xmlName = "ToDo";
    s.objectType = zqObjectTypeToDo;
    s.listType = zqListTypeToDo;
    s.readsName = false;
    s.nameField = kNotes;
    s.key = RecordKey::ListID;
    s.fields = {{kNotes, "Notes", FieldKind::Text},
                {kIsDone, "IsDone", FieldKind::Bool},
                {kReminderDate, "ReminderDate", FieldKind::Date}};
    s.add = {"Notes", "IsActive", "IsDone", "ReminderDate"};
    s.mod = {"Notes", "IsActive", "IsDone", "ReminderDate"};
    s.read = {"IsDone", "Notes", "ReminderDate"};
    s.rules = {{RuleKind::NotEmpty, "Notes", 0, 2500, "Notes"},
               {RuleKind::MaxLength, "Notes", 4095, 2501, "Notes"}};
    return s;
  }());
  return schema;
}

ToDo::ToDo() : ListRecord(StaticSchema()) {}

const std::string& ToDo::Notes() const { return Text(kNotes); }
void ToDo::Notes(std::string value) { SetText(kNotes, std::move(value)); }
bool ToDo::IsDone() const { return Bool(kIsDone); }
void ToDo::IsDone(bool value) { SetBool(kIsDone, value); }
Date ToDo::ReminderDate() const { return DateValue(kReminderDate); }
void ToDo::ReminderDate(Date value) { SetDate(kReminderDate, value); }

}  // namespace brenvale
