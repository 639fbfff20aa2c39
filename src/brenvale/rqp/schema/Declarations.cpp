#include "brenvale/rqp/schema/Declarations.hpp"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <memory>
#include <mutex>
#include <stdexcept>

#include "brenvale/rqp/protocol/RequestDocument.hpp"
#include "brenvale/rqp/protocol/Text.hpp"

namespace brenvale::rqp::detail {
namespace {

[[noreturn]] void Bad(std::string_view what, std::string_view text, std::size_t pos) {
  throw std::logic_error("declaration: " + std::string(what) + " at \"" + std::string(text.substr(pos, 40)) + "\"");
}

bool NameChar(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; }

void SkipBlanks(std::string_view s, std::size_t& pos) {
  while (pos < s.size() && std::isspace(static_cast<unsigned char>(s[pos]))) ++pos;
}

std::size_t Matching(std::string_view s, std::size_t open, char l, char r) {
  int depth = 0;
  for (std::size_t i = open; i < s.size(); ++i) {
    if (s[i] == l) ++depth;
    else if (s[i] == r && --depth == 0) return i;
  }
  Bad("unbalanced", s, open);
}

int Multiply(int a, int b) { return (a < 0 || b < 0) ? -1 : a * b; }

struct Walker {
  const std::vector<Decl>& all;
  Decl& d;
  int order = 0;
  void Walk(const Particle& p, std::vector<std::pair<int, int>>& path, bool required, int mult);
};

void Walker::Walk(const Particle& p, std::vector<std::pair<int, int>>& path, bool required, int mult) {
  switch (p.kind) {
    case Particle::Kind::Element: {
      ChildRule rule;
      rule.decl = p.decl;
      rule.order = order++;
      rule.maxCount = Multiply(mult, p.maxOccurs);
      rule.minVersion = p.minVersion;
      rule.editions = p.editions;
      rule.required = required && p.minOccurs >= 1;
      rule.path = path;
      d.childIndex.emplace(all[static_cast<std::size_t>(p.decl)].name, static_cast<int>(d.children.size()));
      d.children.push_back(std::move(rule));
      break;
    }
    case Particle::Kind::Sequence:
      for (auto& item : p.items) Walk(item, path, required && p.minOccurs >= 1, Multiply(mult, p.maxOccurs));
      break;
    case Particle::Kind::Choice: {
      int cid = d.choiceCount++;
      d.choiceExclusive.push_back(p.maxOccurs == 1 && mult == 1);
      if (p.minOccurs >= 1 && required) d.requiredChoices.emplace_back(cid, path);
      for (std::size_t alt = 0; alt < p.items.size(); ++alt) {
        path.emplace_back(cid, static_cast<int>(alt));
        Walk(p.items[alt], path, true, Multiply(mult, p.maxOccurs));
        path.pop_back();
      }
      break;
    }
  }
}

VType TypeOf(std::string_view code) {
  static const std::pair<std::string_view, VType> table[] = {
      {"s", VType::Str},      {"id", VType::Id},          {"b", VType::Bool},    {"d", VType::Date},
      {"dt", VType::DateTime}, {"ti", VType::TimeInterval}, {"amt", VType::Amt}, {"price", VType::Price},
      {"quan", VType::Quan},  {"pct", VType::Pct},        {"int", VType::Int},   {"float", VType::Float},
      {"guid", VType::Guid},  {"uuid", VType::Uuid},      {"macro", VType::Macro}};
  for (auto& [c, t] : table)
    if (c == code) return t;
  throw std::logic_error("declaration: unknown type " + std::string(code));
}

}  // namespace

// ---- the field notation ------------------------------------------------------------------------

struct DeclBuilder::Parser {
  DeclBuilder& b;
  char variant;

  std::vector<Decl>& Decls() { return b.d_.decls_; }

  int Push(Decl d) {
    d.id = static_cast<int>(Decls().size());
    Decls().push_back(std::move(d));
    return Decls().back().id;
  }

  int Simple(const std::string& name, std::string_view type) {
    Decl d;
    d.name = name;
    if (type.starts_with("e(")) {
      d.type = VType::Enum;
      for (auto v : Split(type.substr(2, type.size() - 3), '|')) d.enumValues.emplace_back(v);
    } else if (type.starts_with("E.")) {
      d.type = VType::Enum;
      auto it = b.enums_.find(std::string(type.substr(2)));
      if (it == b.enums_.end()) throw std::logic_error("declaration: unknown enumeration " + std::string(type));
      for (auto v : Split(it->second, '|')) d.enumValues.emplace_back(v);
    } else {
      std::size_t i = 0;
      while (i < type.size() && std::isalpha(static_cast<unsigned char>(type[i]))) ++i;
      d.type = TypeOf(type.substr(0, i));
      if (i < type.size() && std::isdigit(static_cast<unsigned char>(type[i])))
        std::from_chars(type.data() + i, type.data() + type.size(), d.maxLength);
      if (auto lt = type.find('<'); lt != std::string_view::npos) {
        auto parts = Split(type.substr(lt + 1, type.find('>') - lt - 1), ',');
        long long v = 0;
        std::from_chars(parts[0].data(), parts[0].data() + parts[0].size(), v);
        d.minValue = v;
        std::from_chars(parts[1].data(), parts[1].data() + parts[1].size(), v);
        d.maxValue = v;
      }
    }
    return Push(std::move(d));
  }

  int Complex(const std::string& name, std::string_view fields, int depth) {
    std::size_t pos = 0;
    Particle content = List(fields, pos, depth);
    if (pos != fields.size()) Bad("unexpected text", fields, pos);
    Decl d;
    d.name = name;
    d.type = VType::Complex;
    d.content = std::move(content);
    return Push(std::move(d));
  }

  // Reads "^12.0" version suffixes: "^V" for every variant, "^mV" (a, m or r) for one, which wins
  // over "^V" in that variant. 0 when there is none.
  int Version(std::string_view s, std::size_t& pos) const {
    int all = 0, mine = -1;
    while (pos < s.size() && s[pos] == '^') {
      char only = 0;
      if (++pos < s.size() && std::isalpha(static_cast<unsigned char>(s[pos]))) only = s[pos++];
      std::size_t start = pos;
      while (pos < s.size() && (std::isdigit(static_cast<unsigned char>(s[pos])) || s[pos] == '.')) ++pos;
      int v = ParseVersion(s.substr(start, pos - start));
      if (v < 0) Bad("bad version", s, start);
      if (!only) all = v;
      else if (only == variant) mine = v;
    }
    return mine >= 0 ? mine : all;
  }

  // Reads a "%cua" editions suffix into a set of Edition bits; 0 when there is none.
  static unsigned Editions(std::string_view s, std::size_t& pos) {
    if (pos >= s.size() || s[pos] != '%') return 0;
    unsigned set = 0;
    for (++pos; pos < s.size() && std::islower(static_cast<unsigned char>(s[pos])); ++pos) {
      static constexpr std::pair<char, unsigned> letters[] = {
          {'d', kEditionUS}, {'c', kEditionCA}, {'u', kEditionUK}, {'a', kEditionAU}, {'o', kEditionOnline}};
      auto it = std::find_if(std::begin(letters), std::end(letters), [&](auto& l) { return l.first == s[pos]; });
      if (it == std::end(letters)) Bad("unknown edition", s, pos);
      set |= it->second;
    }
    return set;
  }

  // Reads an occurrence suffix into min/max.
  void Occurs(std::string_view s, std::size_t& pos, Particle& p) {
    p.minOccurs = 0;
    p.maxOccurs = 1;
    while (pos < s.size()) {
      char c = s[pos];
      if (c == '?') {
        ++pos;
      } else if (c == '!') {
        p.minOccurs = 1;
        ++pos;
      } else if (c == '+') {
        p.minOccurs = 1;
        p.maxOccurs = -1;
        ++pos;
      } else if (c == '*') {
        ++pos;
        p.maxOccurs = -1;
        if (pos < s.size() && std::isdigit(static_cast<unsigned char>(s[pos]))) {
          auto [end, ec] = std::from_chars(s.data() + pos, s.data() + s.size(), p.maxOccurs);
          pos = static_cast<std::size_t>(end - s.data());
        }
      } else {
        break;
      }
    }
  }

  Particle List(std::string_view s, std::size_t& pos, int depth) {
    Particle seq;
    seq.kind = Particle::Kind::Sequence;
    while (true) {
      SkipBlanks(s, pos);
      if (pos >= s.size() || s[pos] == ')' || s[pos] == '|' || s[pos] == '}') return seq;
      if (s[pos] == '(') {
        std::size_t close = Matching(s, pos, '(', ')');
        std::string_view inner = s.substr(pos + 1, close - pos - 1);
        Particle choice;
        choice.kind = Particle::Kind::Choice;
        std::size_t ip = 0;
        while (true) {
          Particle alt = List(inner, ip, depth);
          if (!alt.items.empty()) choice.items.push_back(std::move(alt));
          if (ip >= inner.size()) break;
          if (inner[ip] != '|') Bad("'|' expected", inner, ip);
          ++ip;
        }
        pos = close + 1;
        Occurs(s, pos, choice);
        if (depth == 0 && variant == 'm') choice.minOccurs = 0;
        if (!choice.items.empty()) seq.items.push_back(std::move(choice));
        continue;
      }
      if (s[pos] == '@') {  // an element declared before, by name
        std::size_t start = ++pos;
        while (pos < s.size() && NameChar(s[pos])) ++pos;
        std::string name(s.substr(start, pos - start));
        Particle p;
        p.kind = Particle::Kind::Element;
        p.minVersion = Version(s, pos);
        Occurs(s, pos, p);
        auto it = b.d_.named_.find(name);
        if (it == b.d_.named_.end()) Bad("unknown element", s, start);
        p.decl = it->second;
        seq.items.push_back(std::move(p));
        continue;
      }
      std::size_t start = pos;
      while (pos < s.size() && NameChar(s[pos])) ++pos;
      if (pos == start) Bad("field name expected", s, pos);
      std::string name(s.substr(start, pos - start));
      std::string flags = "amr";
      if (pos < s.size() && s[pos] == '[') {
        auto close = s.find(']', pos);
        flags = std::string(s.substr(pos + 1, close - pos - 1));
        pos = close + 1;
      }
      while (pos + 1 < s.size() && s[pos] == '~') {
        if (s[pos + 1] == 'M' && variant == 'm') name += "Mod";
        if (s[pos + 1] == 'R' && variant == 'r') name += "Ret";
        pos += 2;
      }
      Particle p;
      p.kind = Particle::Kind::Element;
      p.minVersion = Version(s, pos);
      p.editions = Editions(s, pos);
      Occurs(s, pos, p);
      if (depth == 0 && variant == 'm') p.minOccurs = 0;
      bool included = variant == 0 || flags.find(variant) != std::string::npos;
      if (pos >= s.size()) Bad("type expected", s, start);
      char kind = s[pos];
      if (kind == ':') {
        std::size_t tstart = ++pos;
        if (s.substr(pos).starts_with("e(")) {
          pos = Matching(s, pos + 1, '(', ')') + 1;
        } else {
          while (pos < s.size() && !std::isspace(static_cast<unsigned char>(s[pos])) && s[pos] != ')' &&
                 s[pos] != '|' && s[pos] != '}')
            ++pos;
        }
        std::string_view type = s.substr(tstart, pos - tstart);
        if (!included) continue;
        if (type.starts_with("ref")) {
          std::string fields = "ListID:id FullName:s" + std::string(type.substr(3));
          p.decl = Complex(name, fields, depth + 1);
        } else {
          p.decl = Simple(name, type);
        }
      } else if (kind == '{') {
        std::size_t close = Matching(s, pos, '{', '}');
        std::string_view inner = s.substr(pos + 1, close - pos - 1);
        pos = close + 1;
        if (!included) continue;
        p.decl = Complex(name, inner, depth + 1);
      } else if (kind == '=') {
        std::size_t astart = ++pos;
        while (pos < s.size() && NameChar(s[pos])) ++pos;
        if (!included) continue;
        p.decl = Complex(name, b.AggregateText(std::string(s.substr(astart, pos - astart))), depth + 1);
      } else {
        Bad("':', '{' or '=' expected", s, pos);
      }
      seq.items.push_back(std::move(p));
    }
  }
};

void DeclBuilder::Aggregate(std::string name, std::string fields) { aggregates_[std::move(name)] = std::move(fields); }
void DeclBuilder::Enumeration(std::string name, std::string values) { enums_[std::move(name)] = std::move(values); }

const std::string& DeclBuilder::AggregateText(const std::string& name) const {
  auto it = aggregates_.find(name);
  if (it == aggregates_.end()) throw std::logic_error("declaration: unknown aggregate " + name);
  return it->second;
}

int DeclBuilder::Element(const std::string& name, std::string_view fields, char variant) {
  Parser p{*this, variant};
  int id = p.Complex(name, fields, 0);
  d_.named_[name] = id;
  return id;
}

void DeclBuilder::Request(const std::string& name, std::string_view fields, std::string attributes,
                          std::string_view version) {
  Parser p{*this, 0};
  int id = p.Complex(name, fields, 1);
  for (auto a : Split(attributes, ',')) d_.decls_[static_cast<std::size_t>(id)].attributes.emplace_back(a);
  d_.requests_[name] = id;
  if (!version.empty()) {
    int v = ParseVersion(version);
    if (v < 0) throw std::logic_error("declaration: bad version of " + name);
    d_.requestVersions_[name] = v;
  }
}

void DeclBuilder::SubscriptionRequest(const std::string& name, std::string_view fields, std::string_view version) {
  Parser p{*this, 0};
  int id = p.Complex(name, fields, 1);
  d_.decls_[static_cast<std::size_t>(id)].attributes.emplace_back("requestID");
  d_.subRequests_[name] = id;
  if (!version.empty()) d_.requestVersions_[name] = ParseVersion(version);
}

// ---- the declarations --------------------------------------------------------------------------

void DeclareShared(DeclBuilder& b) {
  b.Aggregate("Address",
              "Addr1:s41 Addr2:s41 Addr3:s41 Addr4^2.0:s41 Addr5^6.0:s41 City:s31 State:s21 PostalCode:s13 "
              "Country:s31 Note^6.0:s41");
  b.Aggregate("AddressBlock", "Addr1:s41 Addr2:s41 Addr3:s41 Addr4:s41 Addr5:s41");
  b.Enumeration("DataExtType", "AMTTYPE|DATETIMETYPE|INTTYPE|PERCENTTYPE|PRICETYPE|QUANTYPE|STR1024TYPE|STR255TYPE");
  b.Aggregate("DataExtRet", "OwnerID:guid DataExtName!:s31 DataExtType!:E.DataExtType DataExtValue!:s");
  b.Aggregate("NameFilter", "MatchCriterion!:e(StartsWith|Contains|EndsWith) Name!:s");
  b.Aggregate("NameRangeFilter", "FromName:s ToName:s");
  b.Aggregate("TotalBalanceFilter",
              "Operator!:e(LessThan|LessThanEqual|Equal|GreaterThan|GreaterThanEqual) Amount!:amt");
  b.Aggregate("CurrencyFilter", "(ListID+:id | FullName+:s64)!");
  b.Aggregate("ClassFilter", "(ListID+:id | FullName+:s | ListIDWithChildren!:id | FullNameWithChildren!:s)!");
}

Declarations::Declarations(const std::vector<Declarer>& declarers) {
  DeclBuilder b(*this);
  for (Declarer declare : declarers) declare(b);
  for (auto& d : decls_) {
    if (!d.IsComplex()) continue;
    Walker w{decls_, d};
    std::vector<std::pair<int, int>> path;
    w.Walk(d.content, path, true, 1);
  }
}

namespace {
std::unique_ptr<const Declarations>& Installed() {
  static std::unique_ptr<const Declarations> instance;
  return instance;
}
}  // namespace

void Declarations::Install(const std::vector<Declarer>& declarers) {
  static std::once_flag once;
  std::call_once(once, [&] { Installed().reset(new Declarations(declarers)); });
}

const Declarations& Declarations::Get() {
  if (!Installed()) throw std::logic_error("the engine's declarations are not installed");
  return *Installed();
}

namespace {
const Decl* Find(const Declarations& ds, const std::unordered_map<std::string, int>& m, std::string_view name) {
  auto it = m.find(std::string(name));
  return it == m.end() ? nullptr : &ds.At(it->second);
}
}  // namespace

const Decl* Declarations::Named(std::string_view name) const { return Find(*this, named_, name); }
const Decl* Declarations::Request(std::string_view name) const { return Find(*this, requests_, name); }
const Decl* Declarations::SubscriptionRequest(std::string_view name) const { return Find(*this, subRequests_, name); }

int Declarations::RequestVersion(std::string_view name) const {
  auto it = requestVersions_.find(std::string(name));
  return it == requestVersions_.end() ? 0 : it->second;
}

unsigned EditionOf(std::string_view country) {
  if (country == "CA") return kEditionCA;
  if (country == "UK") return kEditionUK;
  return kEditionUS;
}

std::string EditionName(unsigned edition) {
  switch (edition) {
    case kEditionCA: return "QuickBooks Desktop (Canada)";
    case kEditionUK: return "QuickBooks Desktop (UK)";
    case kEditionAU: return "QuickBooks Desktop (Australia)";
    case kEditionOnline: return "QuickBooks Online";
    default: return "QuickBooks Desktop (US)";
  }
}

bool Decl::HasAttribute(std::string_view attribute) const {
  return std::find(attributes.begin(), attributes.end(), attribute) != attributes.end();
}

bool Decl::IsRef() const {
  if (type != VType::Complex || children.empty() || children.size() > 2) return false;
  for (auto& c : children) {
    const auto& n = Declarations::Get().At(c.decl).name;
    if (n != "ListID" && n != "FullName") return false;
  }
  return true;
}

}  // namespace brenvale::rqp::detail
