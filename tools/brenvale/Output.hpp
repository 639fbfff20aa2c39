#pragma once
// Printing records as an aligned table, as JSON or as qbXML, driven by the kind's field schema.
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Tool.hpp"
#include "brenvale/model/ListRecord.hpp"

namespace brenvale::tool {

// The fields a kind reads or writes, in declaration order (the base fields a kind does not use
// are left out).
std::vector<FieldId> KindFields(const RecordDecl& decl);
// The table's columns: the named fields (any case; "all" for every field of the kind), or, when
// none are named, ListID, the name, IsActive, the kind's own fields and TimeModified.
// An unknown name is a usage error that lists the kind's fields.
std::vector<FieldId> TableColumns(const RecordDecl& decl, const std::vector<std::string>& names);

// Prints records of one kind. The table shows `columns`, then a column per custom field the records
// hold; JSON carries every field and the custom fields ("CustomFields"), qbXML every field.
void PrintRecords(std::ostream& out, Format format, const RecordDecl& decl,
                  const std::vector<ListRecord*>& records, const std::vector<FieldId>& columns);

// A text table: the first row is the header; columns padded to their widest cell.
void PrintTable(std::ostream& out, const std::vector<std::vector<std::string>>& rows);

// JSON string literal of UTF-8 text, quotes included.
std::string JsonString(std::string_view text);

// Lays out qbXML text one element per line, indented by depth; an element holding only text stays
// on one line. The text itself is passed through unchanged.
std::string IndentXml(std::string_view xml);

}  // namespace brenvale::tool
