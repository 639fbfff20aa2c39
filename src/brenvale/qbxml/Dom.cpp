#include "brenvale/qbxml/Dom.hpp"

#include <sstream>

#include "brenvale/core/detail/Windows1252.hpp"

namespace brenvale {

std::string_view DomNode::BaseNameOf(std::string_view name) {
  auto colon = name.find(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

std::string_view DomNode::BaseName() const { return BaseNameOf(node_.name()); }

namespace {
void AppendText(pugi::xml_node n, std::string& out) {
  for (pugi::xml_node c = n.first_child(); c; c = c.next_sibling()) {
    if (c.type() == pugi::node_pcdata || c.type() == pugi::node_cdata)
      out += c.value();
    else if (c.type() == pugi::node_element)
      AppendText(c, out);
  }
}
}  // namespace

std::string DomNode::Text() const {
  if (!node_) return {};
  std::string out;
  if (node_.type() == pugi::node_pcdata || node_.type() == pugi::node_cdata) {
    out = node_.value();
  } else {
    pugi::xml_node first = node_.first_child();
    if (first && !first.next_sibling() && first.type() == pugi::node_pcdata)
      out = first.value();
    else
      AppendText(node_, out);
  }
  detail::FixC1Controls(out);
  return out;
}

std::size_t DomNode::ChildCount() const {
  std::size_t n = 0;
  for (pugi::xml_node c = node_.first_child(); c; c = c.next_sibling()) ++n;
  return n;
}

DomNode DomNode::Child(std::size_t index) const {
  pugi::xml_node c = node_.first_child();
  for (std::size_t i = 0; c && i < index; ++i) c = c.next_sibling();
  return DomNode(c);
}

DomNode DomNode::ChildNamed(std::string_view baseName) const {
  for (pugi::xml_node c = node_.first_child(); c; c = c.next_sibling())
    if (c.type() == pugi::node_element && BaseNameOf(c.name()) == baseName) return DomNode(c);
  return {};
}

std::string DomNode::ChildText(std::string_view baseName) const { return ChildNamed(baseName).Text(); }

std::size_t DomNode::AttributeCount() const {
  std::size_t n = 0;
  for (pugi::xml_attribute a = node_.first_attribute(); a; a = a.next_attribute()) ++n;
  return n;
}

std::optional<std::string> DomNode::Attribute(std::string_view name) const {
  for (pugi::xml_attribute a = node_.first_attribute(); a; a = a.next_attribute())
    if (BaseNameOf(a.name()) == name) {
      std::string v = a.value();
      detail::FixC1Controls(v);
      return v;
    }
  return std::nullopt;
}

std::string DomNode::Xml() const {
  std::ostringstream os;
  node_.print(os, "", pugi::format_raw);
  return os.str();
}

DomDocument::DomDocument() : held_(std::make_shared<Held>()) {}

void DomDocument::Parse(char* text, std::size_t size, bool inPlace) {
  constexpr unsigned kFlags = pugi::parse_default | pugi::parse_declaration | pugi::parse_doctype |
                              pugi::parse_comments | pugi::parse_pi;
  pugi::xml_parse_result r = inPlace ? held_->doc.load_buffer_inplace(text, size, kFlags, pugi::encoding_utf8)
                                     : held_->doc.load_buffer(text, size, kFlags, pugi::encoding_utf8);
  if (!r) {
    held_->doc.reset();
    held_->text.clear();
    parseError_ = std::string(r.description()) + " at offset " + std::to_string(r.offset);
  }
}

DomDocument DomDocument::Load(std::string_view text) {
  DomDocument d;
  d.Parse(const_cast<char*>(text.data()), text.size(), false);
  return d;
}

DomDocument DomDocument::Load(std::string&& text) {
  DomDocument d;
  d.held_->text = std::move(text);
  d.Parse(d.held_->text.data(), d.held_->text.size(), true);
  return d;
}

bool DomDocument::Empty() const { return !held_->doc.first_child(); }

std::string DomDocument::Xml() const {
  std::ostringstream os;
  held_->doc.save(os, "", pugi::format_raw | pugi::format_no_declaration);
  return os.str();
}

}  // namespace brenvale
