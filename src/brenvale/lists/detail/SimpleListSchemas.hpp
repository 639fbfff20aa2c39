#pragma once
// Declarations shared by the simple list kinds.
#include <string>

#include "brenvale/model/RecordSchema.hpp"

namespace brenvale::detail {

// The name rule of the simple lists: 1012 when empty, else 1013 beyond 31 characters.
inline std::vector<Rule> NameRules() {
  return {{RuleKind::NotEmpty, "Name", 0, 1012, "Name"}, {RuleKind::MaxLength, "Name", 31, 1013, "Name"}};
}

// A hierarchical simple list (job types, vendor types, classes, customer types): Name, IsActive,
// ParentRef; the name rule, then the parent check; not modifiable through the library.
inline SchemaSpec HierarchicalSimpleList(std::string label, zqEnumListObjectType type, zqEnumListType list) {
  SchemaSpec s;
  s.label = label;
  s.xmlName = label;
  s.objectType = type;
  s.listType = list;
  s.hierarchical = true;
  s.add = {"Name", "IsActive", "ParentRef"};
  s.rules = NameRules();
  s.rules.push_back({RuleKind::Parent, "ParentRef", 0, 1010, "Parent"});
  s.modRefusal = "XMLModify not allowed";
  return s;
}

}  // namespace brenvale::detail
