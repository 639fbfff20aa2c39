#pragma once
// A small read-only view of a parsed response document: what the readers need of a document
// object model (child nodes by index, base names, text, attributes), over pugixml. The document
// keeps the XML declaration, DOCTYPE, comments and processing instructions as nodes, so positions
// count as they do in the documents QuickBooks sends.
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <pugixml.hpp>

namespace brenvale {

class DomNode {
 public:
  DomNode() = default;
  explicit DomNode(pugi::xml_node node) : node_(node) {}

  bool IsNull() const { return !node_; }
  explicit operator bool() const { return static_cast<bool>(node_); }
  bool IsElement() const { return node_.type() == pugi::node_element; }

  // The element name with any namespace prefix removed.
  std::string_view BaseName() const;
  std::string_view NodeName() const { return node_.name(); }
  // The text of the node and all its descendants, joined; Windows-1252 character references of
  // codes 128-159 come back as the characters that code page gives them.
  std::string Text() const;

  std::size_t ChildCount() const;
  // The child at a 0-based index, or a null node.
  DomNode Child(std::size_t index) const;
  DomNode FirstChild() const { return DomNode(node_.first_child()); }
  DomNode NextSibling() const { return DomNode(node_.next_sibling()); }
  DomNode Parent() const { return DomNode(node_.parent()); }
  // The first child element with that base name, or a null node.
  DomNode ChildNamed(std::string_view baseName) const;
  // The text of the first child element with that base name (empty when there is none).
  std::string ChildText(std::string_view baseName) const;

  std::size_t AttributeCount() const;
  std::optional<std::string> Attribute(std::string_view name) const;

  // Child elements in document order: for (DomNode c : node.Children()) ...
  class ChildRange {
   public:
    explicit ChildRange(pugi::xml_node parent) : parent_(parent) {}
    class iterator {
     public:
      explicit iterator(pugi::xml_node n) : n_(n) {}
      DomNode operator*() const { return DomNode(n_); }
      iterator& operator++() {
        n_ = n_.next_sibling();
        return *this;
      }
      bool operator!=(const iterator& o) const { return n_ != o.n_; }
      bool operator==(const iterator& o) const { return n_ == o.n_; }

     private:
      pugi::xml_node n_;
    };
    iterator begin() const { return iterator(parent_.first_child()); }
    iterator end() const { return iterator(pugi::xml_node()); }

   private:
    pugi::xml_node parent_;
  };
  ChildRange Children() const { return ChildRange(node_); }

  // Attributes in document order, as (base name, value).
  template <class F>
  void ForEachAttribute(F&& f) const {
    for (pugi::xml_attribute a = node_.first_attribute(); a; a = a.next_attribute())
      f(BaseNameOf(a.name()), std::string_view(a.value()));
  }

  // The node written back as XML text (no declaration).
  std::string Xml() const;
  const pugi::xml_node& Raw() const { return node_; }

  static std::string_view BaseNameOf(std::string_view name);

 private:
  pugi::xml_node node_;
};

class DomDocument {
 public:
  DomDocument();
  // Parses `text` (UTF-8). Text that is not well-formed gives an empty document; ParseError()
  // then says why.
  static DomDocument Load(std::string_view text);
  // The same, parsing the text where it lies: the document keeps it, and no copy is made.
  static DomDocument Load(std::string&& text);
  static DomDocument Load(const char* text) { return Load(std::string_view(text)); }

  bool Empty() const;
  // The document node; its children are the top-level nodes, declaration included.
  DomNode Root() const { return DomNode(held_->doc); }
  DomNode DocumentElement() const { return DomNode(held_->doc.document_element()); }
  std::size_t ChildCount() const { return Root().ChildCount(); }
  DomNode Child(std::size_t index) const { return Root().Child(index); }
  const std::string& ParseError() const { return parseError_; }
  std::string Xml() const;

 private:
  struct Held {
    std::string text;  // the parsed text, when the document was parsed in place
    pugi::xml_document doc;
  };
  void Parse(char* text, std::size_t size, bool inPlace);

  std::shared_ptr<Held> held_;
  std::string parseError_;
};

}  // namespace brenvale
