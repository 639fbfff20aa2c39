#include "brenvale/webconnector/Users.hpp"

#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <optional>
#include <sstream>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/webconnector/detail/Crypto.hpp"

namespace brenvale::webconnector {
namespace {

constexpr std::string_view kSource = "BrenvaleWC";
constexpr std::string_view kScheme = "pbkdf2-sha256";
constexpr std::size_t kSaltBytes = 16;
constexpr std::size_t kHashBytes = 32;
constexpr int kMaximumHashIterations = 10000000;

[[noreturn]] void Fail(const std::string& text) { platform::Raise(platform::kFileError, kSource, text); }

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

// A name or company: one word of printable characters.
std::string WordProblem(std::string_view what, std::string_view word) {
  if (word.empty()) return std::string(what) + " is empty";
  if (word.size() > 255) return std::string(what) + " is longer than 255 characters";
  for (unsigned char c : word)
    if (c < 0x20 || c == 0x7F || c == ' ') return std::string(what) + " holds a blank or a control character";
  return {};
}

struct ParsedHash {
  int iterations = 0;
  std::string salt, hash;
};

std::optional<ParsedHash> ParseHash(std::string_view text) {
  std::vector<std::string_view> parts;
  for (std::size_t start = 0;;) {
    const std::size_t colon = text.find(':', start);
    parts.push_back(text.substr(start, colon == std::string_view::npos ? colon : colon - start));
    if (colon == std::string_view::npos) break;
    start = colon + 1;
  }
  if (parts.size() != 4 || parts[0] != kScheme || parts[1].empty() || parts[1].size() > 8) return std::nullopt;
  ParsedHash h;
  for (char c : parts[1]) {
    if (c < '0' || c > '9') return std::nullopt;
    h.iterations = h.iterations * 10 + (c - '0');
  }
  auto salt = detail::FromHex(parts[2]);
  auto hash = detail::FromHex(parts[3]);
  if (h.iterations < kMinimumHashIterations || h.iterations > kMaximumHashIterations || !salt || salt->empty() ||
      !hash || hash->size() != kHashBytes)
    return std::nullopt;
  h.salt = std::move(*salt);
  h.hash = std::move(*hash);
  return h;
}

std::string FieldsProblem(const User& u) {
  std::string problem = WordProblem("the user name", u.name);
  if (problem.empty()) problem = WordProblem("the company", u.company);
  if (problem.empty() && !ParseHash(u.passwordHash))
    problem = "the password hash is not of the form pbkdf2-sha256:ITERATIONS:SALT:HASH (" +
              std::to_string(kMinimumHashIterations) + " iterations at least)";
  if (problem.empty())
    for (unsigned char c : u.companyFile)
      if (c < 0x20 || c == 0x7F) problem = "the company file holds a control character";
  return problem;
}

}  // namespace

Users Users::Load(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) Fail("The users file '" + path + "' cannot be read.");
  std::ostringstream text;
  text << in.rdbuf();
  if (in.bad()) Fail("The users file '" + path + "' cannot be read.");
  return Parse(text.str(), "users file '" + path + "'");
}

Users Users::Parse(std::string_view text, const std::string& origin) {
  Users users;
  users.origin_ = origin;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find('\n', start);
    if (end == std::string_view::npos) end = text.size();
    std::string line(text.substr(start, end - start));
    if (!line.empty() && line.back() == '\r') line.pop_back();
    start = end + 1;
    users.lines_.push_back(line);

    std::size_t i = 0;
    while (i < line.size() && IsBlank(line[i])) ++i;
    if (i == line.size() || line[i] == '#') continue;
    const std::string where = origin + ", line " + std::to_string(users.lines_.size()) + ": ";
    User u;
    std::string* fields[] = {&u.name, &u.company, &u.passwordHash};
    for (std::string* field : fields) {
      while (i < line.size() && IsBlank(line[i])) ++i;
      const std::size_t from = i;
      while (i < line.size() && !IsBlank(line[i])) ++i;
      *field = line.substr(from, i - from);
    }
    while (i < line.size() && IsBlank(line[i])) ++i;
    u.companyFile = line.substr(i);
    while (!u.companyFile.empty() && IsBlank(u.companyFile.back())) u.companyFile.pop_back();
    if (u.passwordHash.empty()) Fail(where + "a user needs a name, a company and a password hash");
    if (std::string problem = FieldsProblem(u); !problem.empty()) Fail(where + problem);
    if (users.Find(u.name)) Fail(where + "the user '" + u.name + "' is listed twice");
    const std::string file = users.CompanyFile(u.company);
    if (!file.empty() && !u.companyFile.empty() && file != u.companyFile)
      Fail(where + "the company '" + u.company + "' is given two company files");
    users.users_.push_back(std::move(u));
    users.userLine_.push_back(users.lines_.size() - 1);
  }
  return users;
}

void Users::Set(User user) {
  if (std::string problem = FieldsProblem(user); !problem.empty())
    platform::Raise(platform::kInvalidProcedureCall, kSource, "The user cannot be set: " + problem + ".");
  for (const User& other : users_)
    if (other.company == user.company && other.name != user.name && !other.companyFile.empty() &&
        !user.companyFile.empty() && other.companyFile != user.companyFile)
      platform::Raise(platform::kInvalidProcedureCall, kSource,
                      "The user cannot be set: the user '" + other.name + "' of company '" + user.company +
                          "' names the company file '" + other.companyFile + "'.");
  for (std::size_t k = 0; k < users_.size(); ++k) {
    if (users_[k].name != user.name) continue;
    lines_[userLine_[k]] = Line(user);
    users_[k] = std::move(user);
    return;
  }
  if (lines_.empty()) {
    lines_.push_back("# Users of the Brenvale Web Connector service: one per line.");
    lines_.push_back("# name  company  password hash  [company file QuickBooks opens, rest of the line]");
  }
  lines_.push_back(Line(user));
  users_.push_back(std::move(user));
  userLine_.push_back(lines_.size() - 1);
}

std::string Users::Line(const User& u) {
  std::string line = u.name + "  " + u.company + "  " + u.passwordHash;
  if (!u.companyFile.empty()) line += "  " + u.companyFile;
  return line;
}

std::string Users::Text() const {
  std::string text;
  for (const std::string& line : lines_) text += line + "\n";
  return text;
}

void Users::Save(const std::string& path) const {
  const std::string temporary = path + ".new";
  std::FILE* f = std::fopen(temporary.c_str(), "wb");
  if (!f) Fail("The users file '" + path + "' cannot be written.");
  ::fchmod(fileno(f), S_IRUSR | S_IWUSR);
  const std::string text = Text();
  const bool written = std::fwrite(text.data(), 1, text.size(), f) == text.size();
  if (std::fclose(f) != 0 || !written || std::rename(temporary.c_str(), path.c_str()) != 0) {
    std::remove(temporary.c_str());
    Fail("The users file '" + path + "' cannot be written.");
  }
}

const User* Users::Find(std::string_view name) const {
  auto it = std::find_if(users_.begin(), users_.end(), [&](const User& u) { return u.name == name; });
  return it == users_.end() ? nullptr : &*it;
}

const User* Users::Authenticate(std::string_view name, std::string_view password) const {
  const User* u = Find(name);
  if (!u) {
    // Spend the time a real check takes, so that unknown names cannot be told from wrong passwords.
    static const std::string decoy = HashPassword("decoy", kDefaultHashIterations);
    PasswordMatches(password, decoy);
    return nullptr;
  }
  return PasswordMatches(password, u->passwordHash) ? u : nullptr;
}

std::vector<std::string> Users::Companies() const {
  std::vector<std::string> companies;
  for (const User& u : users_)
    if (std::find(companies.begin(), companies.end(), u.company) == companies.end()) companies.push_back(u.company);
  return companies;
}

std::string Users::CompanyFile(std::string_view company) const {
  for (const User& u : users_)
    if (u.company == company && !u.companyFile.empty()) return u.companyFile;
  return {};
}

std::string Users::HashPassword(std::string_view password, int iterations) {
  if (iterations < kMinimumHashIterations || iterations > kMaximumHashIterations)
    platform::Raise(platform::kInvalidProcedureCall, kSource,
                    "A password hash takes " + std::to_string(kMinimumHashIterations) + " to " +
                        std::to_string(kMaximumHashIterations) + " iterations.");
  const std::string salt = detail::RandomBytes(kSaltBytes);
  return std::string(kScheme) + ":" + std::to_string(iterations) + ":" + detail::Hex(salt) + ":" +
         detail::Hex(detail::Pbkdf2Sha256(password, salt, iterations, kHashBytes));
}

bool Users::PasswordMatches(std::string_view password, std::string_view hash) {
  const auto h = ParseHash(hash);
  if (!h) return false;
  return detail::SameBytes(detail::Pbkdf2Sha256(password, h->salt, h->iterations, kHashBytes), h->hash);
}

}  // namespace brenvale::webconnector
