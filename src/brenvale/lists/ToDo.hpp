#pragma once
// A to-do: a note with an optional reminder date, open or done. A to-do has no name: Name() answers
// its notes, and a collection files it by ListID. QuickBooks lets to-dos be modified.
#include <string>
#include <string_view>

#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class ToDo : public ListRecord {
 public:
  ToDo() : ListRecord(Declaration()) {}
  static const RecordDecl& Declaration();

  std::string Notes() const;
  void Notes(std::string_view value);
  bool IsDone() const;
  void IsDone(bool value);
  // The null date when none is set.
  Date ReminderDate() const;
  void ReminderDate(Date value);
};

}  // namespace brenvale
