#pragma once
#include <string_view>

#include "brenvale/lists/ToDo.hpp"
#include "brenvale/model/ListCollection.hpp"

namespace brenvale {

// To-dos, filed by ListID (a new to-do is held without a key until QuickBooks gives it one).
class ToDoList : public ListCollection<ToDo> {
 public:
  using ListCollection::ListCollection;

  ToDo& Add(std::string_view Notes = {}, bool IsActive = true, bool IsDone = false, Date ReminderDate = Date()) {
    auto record = std::make_shared<ToDo>();
    record->Notes(Notes);
    record->IsActive(IsActive);
    record->IsDone(IsDone);
    if (!ReminderDate.IsNull()) record->ReminderDate(ReminderDate);
    return AddNew(std::move(record));
  }
};

}  // namespace brenvale
