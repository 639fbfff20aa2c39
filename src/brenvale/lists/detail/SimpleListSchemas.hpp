#pragma once
// Declarations shared by the simple list kinds.
#include <string>

#include "brenvale/model/RecordSchema.hpp"

namespace brenvale::detail {

// The name rule of the simple lists: 1012 when empty, else 1013 beyond 31 characters.
inline std::vector<Rule> NameRules() {
  return {{RuleKind::NotEmpty, "Name", 0, 1012, "Name"}, {RuleKind::MaxLength, "Name", 31, 1013, "Name"}};
}

// The rules of sales tax codes and tax codes: a name of at most three characters and a
// description of at most 31.
inline std::vector<Rule> TaxCodeRules() {
  return {{RuleKind::NotEmpty, "Name", 0, 1012, "Name"},
          {RuleKind::MaxLength, "Name", 3, 1400, "Name"},
          {RuleKind::MaxLength, "Desc", 31, 1401, "Description"}};
}

// A flat simple list whose qbXML name is `xmlName`: Add holds "Name" and "IsActive"; the name rule;
// a Mod request is refused with `modRefusal`.
inline SchemaSpec FlatSimpleList(std::string label, std::string xmlName, zqEnumListObjectType type,
                                 zqEnumListType list, std::string modRefusal) {
  SchemaSpec s;
  s.label = std::move(label);
  s.xmlName = std::move(xmlName);
  s.objectType = type;
  s.listType = list;
  s.add = {"Name", "IsActive"};
  s.rules = NameRules();
  s.modRefusal = std::move(modRefusal);
  return s;
}

// A hierarchical simple list (job types, vendor types, classes, customer types): Name, IsActive,
// ParentRef; the name rule, then the parent check; not modifiable through the library.
inline SchemaSpec HierarchicalSimpleList(std::string label, zqEnumListObjectType type, zqEnumListType list) {
  SchemaSpec s = FlatSimpleList(label, label, type, list, "XMLModify not allowed");
  s.hierarchical = true;
  s.add.push_back("ParentRef");
  s.rules.push_back({RuleKind::Parent, "ParentRef", 0, 1010, "Parent"});
  return s;
}

}  // namespace brenvale::detail
