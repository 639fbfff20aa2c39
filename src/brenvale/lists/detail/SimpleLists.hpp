#pragma once
// What the simple list kinds share: the table of a kind that has only the base fields, its add
// bodies, the name rules, and the declarations of the flat and the hierarchical lists.
#include <string_view>

#include "brenvale/model/ListRecord.hpp"

namespace brenvale::detail {

inline constexpr auto kBaseOnly = ListFields();
inline constexpr auto kBaseOnlyRead = ListRead(kBaseOnly);
inline constexpr auto kFlatAdd = kBaseOnly.Order(ListBase::Name, ListBase::IsActive);
inline constexpr auto kHierarchicalAdd = kBaseOnly.Order(ListBase::Name, ListBase::IsActive, ListBase::ParentRef);

// A name is required and at most 31 characters (1012, else 1013).
inline constexpr Rule kNameRules[] = {kBaseOnly.NotEmpty(ListBase::Name, 1012, "Name"),
                                      kBaseOnly.MaxLength(ListBase::Name, 31, 1013, "Name")};
// The name rules, then the parent, which must be a record of the same list (1010).
inline constexpr Rule kHierarchicalRules[] = {
    kNameRules[0], kNameRules[1], kBaseOnly.Exists(ListBase::ParentRef, 1010, "Parent").UncheckedFails()};

// A list kind with only the base fields: its Add body, rules and refusal of a modify request.
constexpr RecordDecl SimpleList(std::string_view label, std::string_view xmlName, zqEnumListObjectType type,
                                std::span<const FieldId> add, std::span<const Rule> rules,
                                std::string_view modRefusal, const ListFacts& facts) {
  return RecordDecl{.label = label,
                    .xmlName = xmlName,
                    .objectType = type,
                    .fields = kBaseOnly.fields,
                    .add = add,
                    .read = kBaseOnlyRead,
                    .rules = rules,
                    .modRefusal = modRefusal,
                    .list = &facts};
}

// A hierarchical list (job types, vendor types, classes, customer types): Name, IsActive and
// ParentRef; the name rules and the parent check; not modified through the library.
constexpr RecordDecl HierarchicalList(std::string_view label, zqEnumListObjectType type, const ListFacts& facts) {
  return SimpleList(label, label, type, kHierarchicalAdd, kHierarchicalRules, "XMLModify not allowed", facts);
}

// A flat list (ship methods, payment methods, customer messages): Name and IsActive.
constexpr RecordDecl FlatList(std::string_view label, std::string_view xmlName, zqEnumListObjectType type,
                              std::span<const Rule> rules, const ListFacts& facts) {
  return SimpleList(label, xmlName, type, kFlatAdd, rules, "Modify not allowed", facts);
}

}  // namespace brenvale::detail
