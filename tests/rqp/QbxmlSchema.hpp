#pragma once
// QuickBooks' qbXML schema read as a tree of element definitions, for tests that hold the engine to
// it: the children an element may have, in schema order.
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <pugixml.hpp>

namespace rqptest {

// The element definitions of the schema files.
class QbxmlSchemaTree {
 public:
  bool Load(const std::string& folder) {
    for (const char* file : {"qbxml130.xsd", "qbxmlops130.xsd", "qbxmlso130.xsd"}) {
      docs_.emplace_back(std::make_unique<pugi::xml_document>());
      if (!docs_.back()->load_file((folder + "/" + file).c_str())) return false;
      for (auto n : docs_.back()->document_element().children()) {
        std::string_view kind = n.name();
        std::string name = n.attribute("name").value();
        if (kind == "xsd:element") elements_[name] = n;
        else if (kind == "xsd:group") groups_[name] = n;
        else if (kind == "xsd:complexType") types_[name] = n;
      }
    }
    // Request and response elements are declared inside the message sets.
    for (auto& doc : docs_)
      for (auto x : doc->select_nodes("//xsd:element[@name and @type]"))
        if (!elements_.count(x.node().attribute("name").value())) elements_[x.node().attribute("name").value()] = x.node();
    return true;
  }

  pugi::xml_node Element(const std::string& name) const {
    auto it = elements_.find(name);
    return it == elements_.end() ? pugi::xml_node() : it->second;
  }

  // The children an element may have, in schema order: (name, definition).
  std::vector<std::pair<std::string, pugi::xml_node>> Children(pugi::xml_node element) const {
    std::vector<std::pair<std::string, pugi::xml_node>> out;
    pugi::xml_node content = element.child("xsd:complexType");
    if (auto type = element.attribute("type")) {
      auto it = types_.find(type.value());
      if (it != types_.end()) content = it->second;
    }
    Walk(content, out);
    return out;
  }

 private:
  void Walk(pugi::xml_node n, std::vector<std::pair<std::string, pugi::xml_node>>& out) const {
    for (auto c : n.children()) {
      std::string_view kind = c.name();
      if (kind == "xsd:element") {
        if (auto ref = c.attribute("ref")) out.emplace_back(ref.value(), Element(ref.value()));
        else out.emplace_back(c.attribute("name").value(), c);
      } else if (kind == "xsd:group") {
        auto it = groups_.find(c.attribute("ref").value());
        if (it != groups_.end()) Walk(it->second, out);
      } else if (kind == "xsd:sequence" || kind == "xsd:choice" || kind == "xsd:complexType") {
        Walk(c, out);
      }
    }
  }

  std::vector<std::unique_ptr<pugi::xml_document>> docs_;
  std::map<std::string, pugi::xml_node, std::less<>> elements_, groups_, types_;
};

// The schema files of the build's schema folder, read once; empty when the folder is absent.
inline const QbxmlSchemaTree& SchemaTree(const std::string& folder) {
  static QbxmlSchemaTree tree = [&] {
    QbxmlSchemaTree t;
    t.Load(folder);
    return t;
  }();
  return tree;
}

}  // namespace rqptest
