#include "support/QbxmlSchema.hpp"

#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlschemas.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <mutex>

namespace brenvale::testing {
namespace {

std::mutex gLock;

std::string Attr(xmlNode* n, const char* name) {
  xmlChar* v = xmlGetProp(n, reinterpret_cast<const xmlChar*>(name));
  if (!v) return {};
  std::string out(reinterpret_cast<const char*>(v));
  xmlFree(v);
  return out;
}

std::string LocalName(xmlNode* n) { return n->name ? reinterpret_cast<const char*>(n->name) : ""; }

// The compiled schema, loaded once.
struct Compiled {
  xmlSchemaPtr schema = nullptr;
  std::string problem;
  Compiled() {
    const std::string dir = SchemaDir();
    if (dir.empty()) return;
    const std::string entry = dir + "/qbxmlops130.xsd";
    xmlSchemaParserCtxtPtr parser = xmlSchemaNewParserCtxt(entry.c_str());
    schema = parser ? xmlSchemaParse(parser) : nullptr;
    if (parser) xmlSchemaFreeParserCtxt(parser);
    if (!schema) problem = "the schema at " + entry + " does not load";
  }
  ~Compiled() {
    if (schema) xmlSchemaFree(schema);
  }
  Compiled(const Compiled&) = delete;
  Compiled& operator=(const Compiled&) = delete;
};

Compiled& Schema() {
  static Compiled compiled;
  return compiled;
}

void CollectProblem(void* into, xmlErrorPtr error) {
  auto* out = static_cast<std::string*>(into);
  if (!error || !error->message) return;
  *out += "line " + std::to_string(error->line) + ": " + error->message;
}

// The schema files parsed as plain XML: every top-level element, group and complex type by name.
struct Declarations {
  std::vector<xmlDocPtr> docs;
  std::map<std::string, xmlNode*> elements, groups, types;
  Declarations() {
    const std::string dir = SchemaDir();
    if (dir.empty()) return;
    for (const char* file : {"qbxml130.xsd", "qbxmltypes130.xsd", "qbxmlso130.xsd", "qbxmlops130.xsd"}) {
      xmlDocPtr doc = xmlReadFile((dir + "/" + file).c_str(), nullptr, XML_PARSE_NONET);
      if (!doc) continue;
      docs.push_back(doc);
      for (xmlNode* n = xmlDocGetRootElement(doc)->children; n; n = n->next) {
        if (n->type != XML_ELEMENT_NODE) continue;
        const std::string kind = LocalName(n), name = Attr(n, "name");
        if (kind == "element") elements[name] = n;
        if (kind == "group") groups[name] = n;
        if (kind == "complexType") types[name] = n;
      }
    }
  }
  ~Declarations() {
    for (xmlDocPtr doc : docs) xmlFreeDoc(doc);
  }
  Declarations(const Declarations&) = delete;
  Declarations& operator=(const Declarations&) = delete;
  // The children of a declaration node, flattened.
  void Flatten(xmlNode* node, std::vector<std::string>& out) const {
    for (xmlNode* c = node->children; c; c = c->next) {
      if (c->type != XML_ELEMENT_NODE) continue;
      const std::string kind = LocalName(c);
      if (kind == "element") {
        out.push_back(Attr(c, "ref").empty() ? Attr(c, "name") : Attr(c, "ref"));
      } else if (kind == "group") {
        auto g = groups.find(Attr(c, "ref"));
        if (g != groups.end()) Flatten(g->second, out);
      } else if (kind == "extension") {
        auto base = types.find(Attr(c, "base"));
        if (base != types.end()) Flatten(base->second, out);
        Flatten(c, out);
      } else if (kind == "sequence" || kind == "choice" || kind == "all" || kind == "complexType" ||
                 kind == "complexContent") {
        Flatten(c, out);
      }
    }
  }
  // The body of an element declaration: its inline type, or its named type.
  std::vector<std::string> ChildrenOf(xmlNode* element) const {
    std::vector<std::string> out;
    auto type = types.find(Attr(element, "type"));
    if (type != types.end())
      Flatten(type->second, out);
    else
      Flatten(element, out);
    return out;
  }
  // A local element declaration named `name` anywhere under `node`.
  xmlNode* Local(xmlNode* node, const std::string& name) const {
    for (xmlNode* c = node->children; c; c = c->next) {
      if (c->type != XML_ELEMENT_NODE) continue;
      if (LocalName(c) == "element" && Attr(c, "name") == name) return c;
      if (LocalName(c) == "group") {
        auto g = groups.find(Attr(c, "ref"));
        if (g != groups.end())
          if (xmlNode* found = Local(g->second, name)) return found;
      }
      if (xmlNode* found = Local(c, name)) return found;
    }
    return nullptr;
  }
};

const Declarations& Decls() {
  static Declarations decls;
  return decls;
}

}  // namespace

std::string SchemaDir() {
#ifdef BRENVALE_SCHEMA_DIR
  std::error_code ec;
  if (std::filesystem::exists(std::string(BRENVALE_SCHEMA_DIR) + "/qbxmlops130.xsd", ec)) return BRENVALE_SCHEMA_DIR;
#endif
  return {};
}

bool SchemaOrSkip(const std::string& what) {
  if (!SchemaDir().empty()) return true;
  [&what]() { GTEST_SKIP() << "no qbXML schema beside the checkout: " << what << " not checked against it"; }();
  return false;
}

std::string SchemaProblems(const std::string& document) {
  std::lock_guard<std::mutex> lock(gLock);
  Compiled& compiled = Schema();
  if (!compiled.schema) return compiled.problem.empty() ? "no qbXML schema" : compiled.problem;
  // The DOCTYPE goes: the desktop form (a public identifier alone) is not well-formed XML.
  std::string text = document;
  const std::size_t doctype = text.find("<!DOCTYPE");
  if (doctype != std::string::npos) {
    std::size_t end = text.find('>', doctype);
    if (end != std::string::npos) text.erase(doctype, end + 1 - doctype);
  }
  std::string problems;
  xmlDocPtr doc = xmlReadMemory(text.data(), static_cast<int>(text.size()), "document.xml", nullptr,
                                XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING);
  if (!doc) return "not well-formed XML";
  xmlSchemaValidCtxtPtr valid = xmlSchemaNewValidCtxt(compiled.schema);
  xmlSchemaSetValidStructuredErrors(valid, &CollectProblem, &problems);
  const int result = xmlSchemaValidateDoc(valid, doc);
  xmlSchemaFreeValidCtxt(valid);
  xmlFreeDoc(doc);
  if (result != 0 && problems.empty()) problems = "invalid (libxml2 code " + std::to_string(result) + ")";
  return problems;
}

namespace {

// Intuit's annotated sample: every request written out once, each element followed on its line by
// a comment naming the editions that lack it and the version that brought it.
struct Sample {
  xmlDocPtr doc = nullptr;
  xmlNode* requests = nullptr;   // QBXMLMsgsRq
  xmlNode* responses = nullptr;  // QBXMLMsgsRs
  Sample() {
    const std::string dir = SchemaDir();
    if (dir.empty()) return;
    doc = xmlReadFile((dir + "/qbxmlops130.xml").c_str(), nullptr, XML_PARSE_NONET);
    if (!doc) return;
    for (xmlNode* n = xmlDocGetRootElement(doc)->children; n; n = n->next)
      if (n->type == XML_ELEMENT_NODE && LocalName(n) == "QBXMLMsgsRq") requests = n;
      else if (n->type == XML_ELEMENT_NODE && LocalName(n) == "QBXMLMsgsRs") responses = n;
  }
  ~Sample() {
    if (doc) xmlFreeDoc(doc);
  }
  Sample(const Sample&) = delete;
  Sample& operator=(const Sample&) = delete;
};

Sample& TheSample() {
  static Sample sample;
  return sample;
}

xmlNode* ChildNamed(xmlNode* parent, const std::string& name) {
  for (xmlNode* c = parent->children; c; c = c->next)
    if (c->type == XML_ELEMENT_NODE && LocalName(c) == name) return c;
  return nullptr;
}

// The comment on the element's own line: inside it for an aggregate, after it for a leaf.
std::string Annotation(xmlNode* element) {
  const long line = xmlGetLineNo(element);
  bool leaf = true;
  for (xmlNode* c = element->children; c; c = c->next)
    if (c->type == XML_ELEMENT_NODE) leaf = false;
  for (xmlNode* c = leaf ? element->next : element->children; c; c = c->next) {
    if (c->type == XML_TEXT_NODE) continue;
    if (c->type != XML_COMMENT_NODE || xmlGetLineNo(c) != line) break;
    return reinterpret_cast<const char*>(c->content);
  }
  return {};
}

// "not in QBD|QBOE" holds QBD; "v12.0" above the session's version.
std::string Refusal(const std::string& note, double version) {
  const std::size_t notIn = note.find("not in ");
  if (notIn != std::string::npos) {
    std::string list = note.substr(notIn + 7);
    list = list.substr(0, list.find_first_of(", "));
    std::size_t at = 0;
    while (at <= list.size()) {
      const std::size_t bar = std::min(list.find('|', at), list.size());
      if (list.substr(at, bar - at) == "QBD") return "not in QBD";
      at = bar + 1;
    }
  }
  for (std::size_t v = note.find(" v"); v != std::string::npos; v = note.find(" v", v + 1)) {
    char* end = nullptr;
    const double since = std::strtod(note.c_str() + v + 2, &end);
    if (end != note.c_str() + v + 2 && since > version + 1e-9) return "only from qbXML " + note.substr(v + 2, end - note.c_str() - v - 2);
  }
  return {};
}

void CompareWithSample(xmlNode* written, xmlNode* sample, const std::string& path, double version,
                       std::string& problems) {
  for (xmlNode* c = written->children; c; c = c->next) {
    if (c->type != XML_ELEMENT_NODE) continue;
    const std::string name = LocalName(c);
    const std::string at = path + "/" + name;
    xmlNode* counterpart = ChildNamed(sample, name);
    if (!counterpart) {
      problems += at + ": not in the sample; ";
      continue;
    }
    const std::string refusal = Refusal(Annotation(counterpart), version);
    if (!refusal.empty()) problems += at + ": " + refusal + "; ";
    CompareWithSample(c, counterpart, at, version, problems);
  }
}

}  // namespace

std::string DesktopProblems(const std::string& document, const std::string& version) {
  std::lock_guard<std::mutex> lock(gLock);
  Sample& sample = TheSample();
  if (!sample.requests || !sample.responses) return "no annotated sample of the schema";
  std::string text = document;
  const std::size_t doctype = text.find("<!DOCTYPE");
  if (doctype != std::string::npos) {
    std::size_t end = text.find('>', doctype);
    if (end != std::string::npos) text.erase(doctype, end + 1 - doctype);
  }
  xmlDocPtr doc = xmlReadMemory(text.data(), static_cast<int>(text.size()), "document.xml", nullptr,
                                XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING);
  if (!doc) return "not well-formed XML";
  std::string problems;
  xmlNode* root = xmlDocGetRootElement(doc);
  xmlNode* messages = root ? ChildNamed(root, "QBXMLMsgsRq") : nullptr;
  xmlNode* counterpart = sample.requests;
  if (!messages && root && (messages = ChildNamed(root, "QBXMLMsgsRs"))) counterpart = sample.responses;
  if (!messages)
    problems = "neither QBXMLMsgsRq nor QBXMLMsgsRs";
  else
    CompareWithSample(messages, counterpart, "", std::strtod(version.c_str(), nullptr), problems);
  xmlFreeDoc(doc);
  return problems;
}

std::vector<std::string> SchemaChildren(const std::string& element) {
  std::lock_guard<std::mutex> lock(gLock);
  const Declarations& d = Decls();
  auto e = d.elements.find(element);
  if (e == d.elements.end()) return {};
  return d.ChildrenOf(e->second);
}

std::vector<std::string> SchemaChildren(const std::string& parent, const std::string& element) {
  std::lock_guard<std::mutex> lock(gLock);
  const Declarations& d = Decls();
  auto p = d.elements.find(parent);
  if (p == d.elements.end()) return {};
  xmlNode* scope = p->second;
  auto type = d.types.find(Attr(scope, "type"));
  if (type != d.types.end()) scope = type->second;
  if (xmlNode* local = d.Local(scope, element)) return d.ChildrenOf(local);
  auto global = d.elements.find(element);
  return global == d.elements.end() ? std::vector<std::string>{} : d.ChildrenOf(global->second);
}

std::vector<std::string> SchemaEnumeration(const std::string& element) {
  std::lock_guard<std::mutex> lock(gLock);
  const Declarations& d = Decls();
  auto e = d.elements.find(element);
  std::vector<std::string> out;
  if (e == d.elements.end()) return out;
  std::function<void(xmlNode*)> walk = [&](xmlNode* n) {
    for (xmlNode* c = n->children; c; c = c->next) {
      if (c->type != XML_ELEMENT_NODE) continue;
      if (LocalName(c) == "enumeration") out.push_back(Attr(c, "value"));
      walk(c);
    }
  };
  walk(e->second);
  return out;
}

}  // namespace brenvale::testing
