// The checks QuickBooks' parser makes of a request element: its children in declared order, each as
// often as declared, one branch of a choice, nothing its qbXML version does not have; and the
// values of its leaves, which are a request's own status rather than a parse failure.
#include <algorithm>
#include <climits>

#include "brenvale/rqp/protocol/RequestDocument.hpp"
#include "brenvale/rqp/protocol/Status.hpp"
#include "brenvale/rqp/protocol/Text.hpp"
#include "brenvale/rqp/schema/Declarations.hpp"

namespace brenvale::rqp::detail {
namespace {

Problem Structure(std::string message) { return Problem{Problem::Kind::Structure, 0, std::move(message)}; }

// Checks one element and everything below it; value problems go to `firstValue`.
Problem CheckTree(const Decl& decl, pugi::xml_node node, int version, unsigned edition, Problem& firstValue);

// Matches the element children of one element against its content model. qbXML's content models
// are deterministic (every choice is decided by the next child's name), so one greedy pass decides.
class Matcher {
 public:
  Matcher(const Decl& decl, pugi::xml_node node, int version, unsigned edition, Problem& firstValue)
      : decl_(decl), version_(version), edition_(edition), firstValue_(firstValue) {
    for (auto c : node.children())
      if (c.type() == pugi::node_element) kids_.push_back(c);
  }

  Problem Run() {
    if (!Match(decl_.content)) return std::move(problem_);
    if (pos_ < kids_.size()) return Unexpected(kids_[pos_]);
    return {};
  }

 private:
  const Declarations& ds_ = Declarations::Get();
  const Decl& decl_;
  int version_;
  unsigned edition_;
  Problem& firstValue_;
  std::vector<pugi::xml_node> kids_;
  std::size_t pos_ = 0;
  Problem problem_;

  const std::string& NameOf(const Particle& p) const { return ds_.At(p.decl).name; }
  bool Present(const Particle& p) const {
    return p.minVersion <= version_ && (p.editions == 0 || (p.editions & edition_) != 0);
  }

  // Whether `p` (one occurrence of it) can start with an element called `name`.
  bool Starts(const Particle& p, std::string_view name) const {
    switch (p.kind) {
      case Particle::Kind::Element:
        return Present(p) && NameOf(p) == name;
      case Particle::Kind::Choice:
        return std::any_of(p.items.begin(), p.items.end(), [&](const Particle& a) { return Starts(a, name); });
      case Particle::Kind::Sequence:
        for (const Particle& item : p.items) {
          if (Starts(item, name)) return true;
          if (!Optional(item)) return false;
        }
        return false;
    }
    return false;
  }

  // Whether `p` may be left out entirely.
  bool Optional(const Particle& p) const { return p.minOccurs == 0 || EmptyBody(p); }
  bool EmptyBody(const Particle& p) const {
    switch (p.kind) {
      case Particle::Kind::Element:
        return !Present(p);  // an element the version does not have is not required either
      case Particle::Kind::Choice:
        return std::any_of(p.items.begin(), p.items.end(), [&](const Particle& a) { return Optional(a); });
      case Particle::Kind::Sequence:
        return std::all_of(p.items.begin(), p.items.end(), [&](const Particle& a) { return Optional(a); });
    }
    return true;
  }

  // The names that could start `p`, for messages.
  void FirstNames(const Particle& p, std::string& out) const {
    switch (p.kind) {
      case Particle::Kind::Element:
        if (!Present(p)) return;
        if (!out.empty()) out += " or ";
        out += Quote(NameOf(p));
        return;
      case Particle::Kind::Choice:
        for (const Particle& a : p.items) FirstNames(a, out);
        return;
      case Particle::Kind::Sequence:
        for (const Particle& item : p.items) {
          FirstNames(item, out);
          if (!Optional(item)) return;
        }
    }
  }

  bool Fail(Problem p) {
    problem_ = std::move(p);
    return false;
  }

  bool Match(const Particle& p) {
    int count = 0;
    while ((p.maxOccurs < 0 || count < p.maxOccurs) && pos_ < kids_.size() && Starts(p, kids_[pos_].name())) {
      std::size_t before = pos_;
      if (!MatchOnce(p)) return false;
      ++count;
      if (pos_ == before) break;
    }
    if (count >= p.minOccurs || EmptyBody(p)) return true;
    std::string expected;
    FirstNames(p, expected);
    if (pos_ < kids_.size())
      return Fail(Structure("In " + Quote(decl_.name) + ", element " + Quote(kids_[pos_].name()) +
                            " is not expected here; expected is " + expected + "."));
    return Fail(Structure("Element " + Quote(decl_.name) + " is missing its required element " + expected + "."));
  }

  bool MatchOnce(const Particle& p) {
    switch (p.kind) {
      case Particle::Kind::Element: {
        Problem inner = CheckTree(ds_.At(p.decl), kids_[pos_], version_, edition_, firstValue_);
        if (inner) return Fail(std::move(inner));
        ++pos_;
        return true;
      }
      case Particle::Kind::Sequence:
        for (const Particle& item : p.items)
          if (!Match(item)) return false;
        return true;
      case Particle::Kind::Choice:
        for (const Particle& a : p.items)
          if (Starts(a, kids_[pos_].name())) return Match(a);
        return true;
    }
    return true;
  }

  // A child left over once the content model is matched: unknown here, too new for the version,
  // out of order, or once too often.
  Problem Unexpected(pugi::xml_node kid) const {
    std::string_view name = kid.name();
    const ChildRule* rule = decl_.Child(name);
    if (!rule) return Structure("Element " + Quote(name) + " is not allowed in " + Quote(decl_.name) + ".");
    if (rule->minVersion > version_)
      return Structure("Element " + Quote(name) + " of " + Quote(decl_.name) + " is not in qbXML " +
                       VersionText(version_) + "; it came with " + VersionText(rule->minVersion) + ".");
    if (rule->editions != 0 && (rule->editions & edition_) == 0)
      return Structure("Element " + Quote(name) + " of " + Quote(decl_.name) + " is not in " + EditionName(edition_) +
                       ".");
    long seen = std::count_if(kids_.begin(), kids_.begin() + static_cast<std::ptrdiff_t>(pos_),
                              [&](pugi::xml_node k) { return name == k.name(); });
    if (rule->maxCount >= 0 && seen >= rule->maxCount)
      return Structure("Element " + Quote(name) + " appears too often in " + Quote(decl_.name) + ".");
    return Structure("In " + Quote(decl_.name) + ", element " + Quote(name) +
                     " is out of schema order or cannot appear together with what comes before it.");
  }
};

Problem CheckTree(const Decl& decl, pugi::xml_node node, int version, unsigned edition, Problem& firstValue) {
  if (!decl.IsComplex()) {
    for (auto c : node.children())
      if (c.type() == pugi::node_element)
        return Structure("Element " + Quote(c.name()) + " is not allowed in " + Quote(decl.name) + ".");
    std::string text = node.text().get();
    Problem p = CheckValue(decl, text);
    if (p) {
      if (!firstValue) firstValue = std::move(p);
    } else if (text != node.text().get()) {
      node.text().set(text.c_str());
    }
    return {};
  }
  for (auto c : node.children())
    if ((c.type() == pugi::node_pcdata || c.type() == pugi::node_cdata) && !Trim(c.value()).empty())
      return Structure("Element " + Quote(decl.name) + " cannot hold text.");
  return Matcher(decl, node, version, edition, firstValue).Run();
}

}  // namespace

Problem CheckElement(const Decl& decl, pugi::xml_node node, int version, unsigned edition) {
  Problem value;
  Problem structure = CheckTree(decl, node, version, edition, value);
  return structure ? structure : value;
}

Problem CheckRequest(const Decl& decl, pugi::xml_node request, int version, unsigned edition, bool relaxOrder) {
  if (int since = Declarations::Get().RequestVersion(decl.name); since > version)
    return Structure("Request " + Quote(decl.name) + " is not in qbXML " + VersionText(version) + "; it came with " +
                     VersionText(since) + ".");
  // QuickBooks takes request IDs of up to 50 characters.
  constexpr std::size_t kRequestIdLimit = 50;
  for (auto a : request.attributes()) {
    std::string_view name = a.name();
    std::string_view value = Trim(a.value());
    if (!decl.HasAttribute(name))
      return Structure("Attribute " + Quote(name) + " is not allowed in " + Quote(decl.name) + ".");
    if (name == "requestID" && Utf8Length(a.value()) > kRequestIdLimit)
      return Structure("The requestID of " + Quote(decl.name) + " is longer than 50 characters.");
    if (name == "metaData" && value != "NoMetaData" && value != "MetaDataOnly" && value != "MetaDataAndResponseData")
      return Structure("Attribute \"metaData\" has the invalid value " + Quote(value) + ".");
    if (name == "iterator" && value != "Start" && value != "Continue" && value != "Stop")
      return Structure("Attribute \"iterator\" has the invalid value " + Quote(value) + ".");
  }
  if (relaxOrder) OrderChildren(decl, request);
  return CheckElement(decl, request, version, edition);
}

void OrderChildren(const Decl& decl, pugi::xml_node node,
                   const std::function<void(const Decl&, pugi::xml_node)>& visit) {
  if (visit) visit(decl, node);
  std::vector<std::pair<int, pugi::xml_node>> kids;
  for (auto c : node.children()) {
    if (c.type() != pugi::node_element) continue;
    const ChildRule* rule = decl.Child(c.name());
    if (rule && Declarations::Get().At(rule->decl).IsComplex()) OrderChildren(Declarations::Get().At(rule->decl), c, visit);
    kids.emplace_back(rule ? rule->order : INT_MAX, c);
  }
  std::stable_sort(kids.begin(), kids.end(), [](auto& x, auto& y) { return x.first < y.first; });
  for (auto& [order, c] : kids) node.append_move(c);
}

void DropNewerThan(const Decl& decl, pugi::xml_node node, int version) {
  for (auto c = node.first_child(); c;) {
    auto next = c.next_sibling();
    if (c.type() == pugi::node_element) {
      if (const ChildRule* rule = decl.Child(c.name())) {
        if (rule->minVersion > version) node.remove_child(c);
        else if (Declarations::Get().At(rule->decl).IsComplex()) DropNewerThan(Declarations::Get().At(rule->decl), c, version);
      }
    }
    c = next;
  }
}

}  // namespace brenvale::rqp::detail
