#pragma once
// QuickBooks' qbXML schema, for tests that check what the library writes. The folder comes from the
// build (BRENVALE_SCHEMA_DIR); without it the checks skip, visibly.
#include <string>
#include <vector>

namespace brenvale::testing {

// The schema folder, or empty when it is not there.
std::string SchemaDir();

// The problems libxml2 finds validating a request (or response) document against the schema;
// empty when it is valid. A DOCTYPE is taken out first: the desktop one is not well-formed XML.
std::string SchemaProblems(const std::string& document);

// What Intuit's annotated sample of the schema says QuickBooks on a desktop of the US edition
// refuses in a request document, or never writes in a response document: each element marked "not
// in QBD", and each the sample gives a version above `version` ("v12.0" to a 11.0 session). Empty
// when there is nothing; the document is expected to validate against the schema (an element the
// sample lacks is reported too).
std::string DesktopProblems(const std::string& document, const std::string& version = "13.0");

// Records a skip for the running test when the schema is absent (the test still runs, and is
// reported skipped unless it fails); true when the schema is there.
bool SchemaOrSkip(const std::string& what);

// The element children an element of the schema takes, in order ("JobTypeAdd" gives Name,
// IsActive, ParentRef); every branch of a choice in its place, groups and base types flattened.
// Empty when the schema does not declare the element.
std::vector<std::string> SchemaChildren(const std::string& element);
// The same for an element declared inside another (an "ItemLineAdd" inside "BillAdd").
std::vector<std::string> SchemaChildren(const std::string& parent, const std::string& element);

// The values the schema's top-level element `element` may hold ("ListDataExtType" gives Account,
// Customer ...); empty when it is not an enumeration.
std::vector<std::string> SchemaEnumeration(const std::string& element);

}  // namespace brenvale::testing
