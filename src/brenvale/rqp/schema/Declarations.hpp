#pragma once
// The engine's own declarations of every element it reads or writes: the request bodies it takes,
// the Ret elements it stores, in QuickBooks' order, with value types, lengths, occurrence, choices
// and the qbXML version that brought each element. They are written in a compact field notation
// by the parts of the engine that own the requests (lists, host, dataext, subscriptions) and turned
// into Decl trees once. Every request is checked against them, every stored record is ordered by
// them, and every response leaves out what the request's version does not have.
//
// Field notation, one field after another, separated by blanks:
//   Name[amr]~M~R^V*!:type    a field; everything after the name is optional
//     [amr]    the variants holding it: a(dd), m(od), r(et); all three when absent
//     ~M ~R    named Name+"Mod" in the Mod variant, Name+"Ret" in the Ret variant
//     ^V       brought by qbXML version V ("^12.0", "^2.1"); older requests do not have it;
//              ^aV ^mV ^rV give the version of one variant where it differs ("^m3.0")
//     %E       only the editions E of QuickBooks have it in a request: d the US desktop, c the
//              Canadian, u the UK and a the Australian one, o the online edition ("%cua"); a
//              request to any other edition holding it is refused whole
//     ? * *N + !   occurrence: optional (the default), any number, up to N, one or more, required
//                  (a required field of a Mod body's top level is optional there)
//     :type    s (string) or sN (at most N characters), id, b, d, dt, ti, amt, price, quan, pct,
//              int or int<lo,hi>, float, guid, e(A|B|C) or E.Name (enumerations), ref or refN
//              (a reference: ListID and a FullName of at most N characters)
//   Name{fields}       an aggregate;    Name=Agg   an aggregate declared once under that name
//   @Name!             an element declared before by DeclBuilder::Element
//   (fields|fields)!   a choice between alternatives; "!" when one of them is required
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <pugixml.hpp>

namespace brenvale::rqp::detail {

enum class VType : std::uint8_t {
  Complex, Str, Id, Bool, Date, DateTime, TimeInterval, Amt, Price, Quan, Pct, Int, Float, Guid, Uuid,
  Macro, Enum,
};

struct Particle {
  enum class Kind : std::uint8_t { Element, Choice, Sequence };
  Kind kind = Kind::Sequence;
  int minOccurs = 1;
  int maxOccurs = 1;    // -1: unbounded
  int decl = -1;        // Element
  int minVersion = 0;   // Element: the qbXML version that brought it, in tenths (0: every version)
  unsigned editions = 0;  // Element: the editions that have it (Edition bits; 0: every edition)
  std::vector<Particle> items;  // Choice: one Sequence per alternative; Sequence: its particles
};

// One permitted child of an element, with what the content model says about it.
struct ChildRule {
  int decl = -1;
  int order = 0;            // position in declared order
  int maxCount = 1;         // -1: unbounded
  int minVersion = 0;       // the qbXML version that brought it, in tenths
  unsigned editions = 0;    // the editions that have it (Edition bits; 0: every edition)
  bool required = false;    // required whenever every choice on its path takes its branch
  std::vector<std::pair<int, int>> path;  // (choice number, alternative) from the outside in
};

struct Decl {
  int id = -1;
  std::string name;
  VType type = VType::Complex;
  int maxLength = 0;  // 0: none
  std::optional<long long> minValue, maxValue;
  std::vector<std::string> enumValues;
  std::vector<std::string> attributes;
  Particle content;
  // Derived from content:
  std::vector<ChildRule> children;  // in declared order
  std::unordered_map<std::string_view, int> childIndex;  // name -> index in children
  std::vector<std::pair<int, std::vector<std::pair<int, int>>>> requiredChoices;  // choice, its path
  int choiceCount = 0;
  std::vector<bool> choiceExclusive;  // at most one branch may appear

  bool IsComplex() const { return type == VType::Complex; }
  const ChildRule* Child(std::string_view childName) const {
    auto it = childIndex.find(childName);
    return it == childIndex.end() ? nullptr : &children[static_cast<std::size_t>(it->second)];
  }
  bool HasAttribute(std::string_view attribute) const;
  // A reference aggregate: ListID and/or FullName, nothing else.
  bool IsRef() const;
};

class DeclBuilder;
using Declarer = void (*)(DeclBuilder&);

// The declared elements, built once from what each part of the engine declares.
class Declarations {
 public:
  // Builds the declarations from `declarers`, in order, on the first call; later calls do nothing.
  static void Install(const std::vector<Declarer>& declarers);
  // The installed declarations; throws std::logic_error before Install.
  static const Declarations& Get();

  const Decl& At(int id) const { return decls_[static_cast<std::size_t>(id)]; }
  // A top-level declaration by element name ("CustomerRet", "CustomerAdd", "DataExtDefRet").
  const Decl* Named(std::string_view name) const;
  // The declaration of a request element inside QBXMLMsgsRq / QBXMLSubscriptionMsgsRq.
  const Decl* Request(std::string_view name) const;
  const Decl* SubscriptionRequest(std::string_view name) const;
  // The qbXML version that brought a request, in tenths.
  int RequestVersion(std::string_view name) const;

  // Every request declaration, by name (for the checks against QuickBooks' schema).
  const std::unordered_map<std::string, int>& Requests() const { return requests_; }
  const std::unordered_map<std::string, int>& SubscriptionRequests() const { return subRequests_; }
  const std::unordered_map<std::string, int>& NamedElements() const { return named_; }

 private:
  friend class DeclBuilder;
  explicit Declarations(const std::vector<Declarer>& declarers);
  std::vector<Decl> decls_;
  std::unordered_map<std::string, int> named_, requests_, subRequests_;
  std::unordered_map<std::string, int> requestVersions_;
};

// Used while the declarations are built.
class DeclBuilder {
 public:
  explicit DeclBuilder(Declarations& d) : d_(d) {}
  // An aggregate or enumeration referred to by "=Name" or "E.Name" in later fields.
  void Aggregate(std::string name, std::string fields);
  void Enumeration(std::string name, std::string values);  // "A|B|C"
  // Declares element `name` holding `fields` as seen by one variant ('a', 'm', 'r'; 0 for all)
  // and files it under its name. Returns its id.
  int Element(const std::string& name, std::string_view fields, char variant = 0);
  // A request element and its body; `version` is the qbXML version that brought the request.
  void Request(const std::string& name, std::string_view fields, std::string attributes = "requestID",
               std::string_view version = {});
  void SubscriptionRequest(const std::string& name, std::string_view fields, std::string_view version = {});
  const std::string& AggregateText(const std::string& name) const;

 private:
  struct Parser;
  Declarations& d_;
  std::unordered_map<std::string, std::string> aggregates_, enums_;
};

// The aggregates and enumerations several parts of the engine share (addresses, filters, data
// extension values); declared first.
void DeclareShared(DeclBuilder& b);

// The editions of QuickBooks, as bits of a set.
enum Edition : unsigned { kEditionUS = 1, kEditionCA = 2, kEditionUK = 4, kEditionAU = 8, kEditionOnline = 16 };
// The edition of a desktop QuickBooks of `country` ("US", "CA", "UK").
unsigned EditionOf(std::string_view country);
// How messages name an edition: "QuickBooks Desktop (US)".
std::string EditionName(unsigned edition);

// Problems found in a request element.
struct Problem {
  enum class Kind { None, Structure, Value };
  Kind kind = Kind::None;
  int status = 0;            // the status code of a value problem
  std::string message;       // status message, or the parse failure's detail
  explicit operator bool() const { return kind != Kind::None; }
};

// Checks `node` against `decl` for a request of qbXML `version` (tenths) to QuickBooks of `edition`:
// children in declared order, as often as declared, one branch of each choice, nothing the version
// or the edition does not have, and simple values of their types (rewritten to their canonical
// text). A structural problem (what QuickBooks' parser refuses) is returned at once; otherwise the
// first value problem, if any.
Problem CheckElement(const Decl& decl, pugi::xml_node node, int version, unsigned edition = kEditionUS);

// Checks a request element as QuickBooks' parser does: that qbXML `version` has the request, its
// attributes (requestID everywhere; metaData, iterator and iteratorID where declared) and their
// values, and its content as CheckElement does, after putting the children in declared order when
// `relaxOrder`. A structural problem refuses the document; a value problem is the request's status.
Problem CheckRequest(const Decl& decl, pugi::xml_node request, int version, unsigned edition, bool relaxOrder);

// Puts the children of `node` (and of its complex children) in declared order. `visit` is called on
// every complex element, before its children are ordered.
void OrderChildren(const Decl& decl, pugi::xml_node node,
                   const std::function<void(const Decl&, pugi::xml_node)>& visit = {});

// Removes from `node`, at any depth, the elements qbXML `version` does not have.
void DropNewerThan(const Decl& decl, pugi::xml_node node, int version);

// Checks one simple value; on success `text` holds the canonical form.
Problem CheckValue(const Decl& decl, std::string& text);

// Canonical number text: amounts with two decimals, prices and percentages with two to five,
// others as short as possible. `value` is in hundred-thousandths.
std::string FormatAmount(long long value);
std::string FormatDecimal(long long hundredThousandths, int minDecimals);
// The canonical text of a number of type `type` (Amt, Price, Pct, Quan, Float), in hundred-thousandths.
std::string FormatNumber(VType type, long long value);
// Parses decimal text into hundred-thousandths (five decimals, rounded half away from zero).
std::optional<long long> ParseDecimal(std::string_view text);

}  // namespace brenvale::rqp::detail
