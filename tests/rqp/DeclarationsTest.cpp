// The engine's declarations against QuickBooks' own: every declared element's children in the order
// of the qbXML 13.0 schema, and the version that brought each element and the length QuickBooks
// Desktop allows as Intuit's annotated sample gives them.
#include <functional>
#include <map>
#include <regex>

#include "brenvale/rqp/engine/Company.hpp"
#include "brenvale/rqp/schema/Declarations.hpp"
#include "rqp/EngineHarness.hpp"
#include "rqp/QbxmlSchema.hpp"

namespace rqptest {
namespace {

using brenvale::rqp::detail::Decl;
using brenvale::rqp::detail::Declarations;

std::string VersionText(int tenths) {
  return tenths == 0 ? "-" : std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
}

// What Intuit's annotated sample says of one element.
struct Annotation {
  int version = 0;      // the version that brought it, in tenths
  int length = 0;       // QuickBooks Desktop's maximum length, 0 when none is given
  bool notInDesktop = false;
};

Annotation Annotate(pugi::xml_node element) {
  auto usable = [](pugi::xml_node c) {
    if (c.type() != pugi::node_comment) return false;
    std::string_view t = c.value();
    return t.find("BEGIN OR") == std::string_view::npos && t.find(" OR ") == std::string_view::npos &&
           t.find("END OR") == std::string_view::npos && t.find("may have one of") == std::string_view::npos &&
           t.find('\'') == std::string_view::npos && t.find("contains") == std::string_view::npos;
  };
  std::string text;
  if (element.first_child() && usable(element.first_child())) text = element.first_child().value();
  else if (element.next_sibling() && usable(element.next_sibling())) text = element.next_sibling().value();
  Annotation a;
  std::smatch m;
  if (std::regex_search(text, m, std::regex("\\bv(\\d+)\\.(\\d)"))) a.version = std::stoi(m[1]) * 10 + std::stoi(m[2]);
  static const std::regex length("max length = (\\d+)( for ([A-Z|]+))?");
  for (std::sregex_iterator it(text.begin(), text.end(), length), end; it != end; ++it) {
    std::string editions = (*it)[3];
    if (editions.empty() || ("|" + editions + "|").find("|QBD|") != std::string::npos) a.length = std::stoi((*it)[1]);
  }
  if (std::regex_search(text, m, std::regex("not in ([A-Z|]+)")))
    a.notInDesktop = ("|" + m[1].str() + "|").find("|QBD|") != std::string::npos;
  return a;
}

class DeclarationsTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    brenvale::rqp::detail::InstallEngine();
    if (!schema_.Load(SchemaFolder())) return;
    sample_.load_file((SchemaFolder() + "/qbxmlops130.xml").c_str(), pugi::parse_default | pugi::parse_comments);
  }
  void SetUp() override {
    if (!QbxmlSchema() || !sample_.document_element())
      GTEST_SKIP() << "no qbXML schema or annotated sample in " << SchemaFolder();
  }

  // Compares a declaration with the schema's definition, at any depth; the problems go to `out`.
  void CompareOrder(const Decl& decl, pugi::xml_node definition, const std::string& path, std::vector<std::string>& out) {
    auto kids = schema_.Children(definition);
    int last = -1;
    std::string lastName;
    for (auto& rule : decl.children) {
      const Decl& child = Declarations::Get().At(rule.decl);
      auto it = std::find_if(kids.begin(), kids.end(), [&](auto& k) { return k.first == child.name; });
      if (it == kids.end()) {
        out.push_back(path + "/" + child.name + ": not in the schema");
        continue;
      }
      int at = static_cast<int>(it - kids.begin());
      if (at < last) out.push_back(path + "/" + child.name + ": comes before " + lastName + " in the schema");
      last = std::max(last, at);
      lastName = child.name;
      if (child.IsComplex() && it->second) CompareOrder(child, it->second, path + "/" + child.name, out);
    }
  }

  // Compares versions and lengths with the annotated sample's element. Inside a request that came
  // with version `since`, an element of that version or older is simply there: the sample marks
  // only the later ones.
  void CompareAnnotations(const Decl& decl, pugi::xml_node sample, const std::string& path, bool ret, int since,
                          std::vector<std::string>& out) {
    for (auto& rule : decl.children) {
      const Decl& child = Declarations::Get().At(rule.decl);
      pugi::xml_node s = sample.child(child.name.c_str());
      if (!s) continue;  // the order check reports elements the schema lacks
      Annotation a = Annotate(s);
      std::string at = path + "/" + child.name;
      if (std::max(a.version, since) != std::max(rule.minVersion, since))
        out.push_back(at + ": since " + VersionText(rule.minVersion) + ", QuickBooks says " + VersionText(a.version));
      if (!child.IsComplex() && child.maxLength != 0 && a.length != 0 && child.maxLength != a.length)
        out.push_back(at + ": length " + std::to_string(child.maxLength) + ", QuickBooks Desktop's is " +
                      std::to_string(a.length));
      if (ret && a.notInDesktop) out.push_back(at + ": answered, but QuickBooks Desktop does not have it");
      bool desktopTakesIt = rule.editions == 0 || (rule.editions & brenvale::rqp::detail::kEditionUS) != 0;
      if (!ret && a.notInDesktop && desktopTakesIt) out.push_back(at + ": taken, but QuickBooks Desktop does not have it");
      if (!ret && !a.notInDesktop && !desktopTakesIt) out.push_back(at + ": refused, but QuickBooks Desktop has it");
      if (child.IsComplex()) CompareAnnotations(child, s, at, ret, since, out);
    }
  }

  static std::string Listed(const std::vector<std::string>& problems) {
    std::string out;
    for (auto& p : problems) out += "\n  " + p;
    return out;
  }

  static QbxmlSchemaTree schema_;
  static pugi::xml_document sample_;
};

QbxmlSchemaTree DeclarationsTest::schema_;
pugi::xml_document DeclarationsTest::sample_;

TEST_F(DeclarationsTest, ChildrenAreInSchemaOrder) {
  const Declarations& ds = Declarations::Get();
  std::vector<std::string> problems;
  std::size_t compared = 0;
  auto compare = [&](const std::unordered_map<std::string, int>& decls) {
    for (auto& [name, id] : decls) {
      pugi::xml_node definition = schema_.Element(name);
      if (!definition) {
        problems.push_back(name + ": not in the schema");
        continue;
      }
      CompareOrder(ds.At(id), definition, name, problems);
      ++compared;
    }
  };
  compare(ds.Requests());
  compare(ds.SubscriptionRequests());
  compare(ds.NamedElements());
  EXPECT_GT(compared, 150u);
  EXPECT_TRUE(problems.empty()) << problems.size() << " declarations differ from the schema:" << Listed(problems);
}

TEST_F(DeclarationsTest, VersionsAndLengthsAreQuickBooksDesktops) {
  const Declarations& ds = Declarations::Get();
  std::vector<std::string> problems;
  std::size_t compared = 0;
  auto first = [&](const std::string& name) {
    return sample_.select_node(("//" + name).c_str()).node();
  };
  auto requests = ds.Requests();
  requests.insert(ds.SubscriptionRequests().begin(), ds.SubscriptionRequests().end());
  for (auto& [name, id] : requests) {
    pugi::xml_node s = first(name);
    if (!s) {
      problems.push_back(name + ": not in the annotated sample");
      continue;
    }
    int since = ds.RequestVersion(name);
    if (since != Annotate(s).version)
      problems.push_back(name + ": since " + VersionText(since) + ", QuickBooks says " + VersionText(Annotate(s).version));
    CompareAnnotations(ds.At(id), s, name, false, since, problems);
    ++compared;
  }
  // A Ret element, an Add or a Mod body, in the context of the request that carries it.
  auto requestOf = [](const std::string& name) {
    for (auto [suffix, request] : {std::pair{"Ret", "QueryRq"}, {"Add", "AddRq"}, {"Mod", "ModRq"}})
      if (name.ends_with(suffix)) return name.substr(0, name.size() - std::string_view(suffix).size()) + request;
    return name;
  };
  for (auto& [name, id] : ds.NamedElements()) {
    if (pugi::xml_node s = first(name)) {
      CompareAnnotations(ds.At(id), s, name, name.ends_with("Ret"), ds.RequestVersion(requestOf(name)), problems);
      ++compared;
    }
  }
  EXPECT_GT(compared, 150u);
  EXPECT_TRUE(problems.empty()) << problems.size() << " declarations differ from QuickBooks':" << Listed(problems);
}

// The other way round: whatever QuickBooks' schema lets a request hold, at any depth, the engine
// declares, so that no request QuickBooks takes is refused as malformed.
TEST_F(DeclarationsTest, EveryElementOfQuickBooksRequestsIsDeclared) {
  const Declarations& ds = Declarations::Get();
  std::vector<std::string> missing;
  std::function<void(const Decl&, pugi::xml_node, const std::string&)> walk = [&](const Decl& decl, pugi::xml_node def,
                                                                                  const std::string& path) {
    for (auto& [name, node] : schema_.Children(def)) {
      const brenvale::rqp::detail::ChildRule* rule = decl.Child(name);
      if (!rule) {
        missing.push_back(path + "/" + name);
      } else if (const Decl& child = ds.At(rule->decl); child.IsComplex() && node) {
        walk(child, node, path + "/" + name);
      }
    }
  };
  for (auto& [name, id] : ds.Requests())
    if (pugi::xml_node definition = schema_.Element(name)) walk(ds.At(id), definition, name);
  std::sort(missing.begin(), missing.end());
  EXPECT_GT(ds.Requests().size(), 100u);
  EXPECT_TRUE(missing.empty()) << missing.size() << " elements QuickBooks takes are not declared:" << Listed(missing);
}

}  // namespace
}  // namespace rqptest
