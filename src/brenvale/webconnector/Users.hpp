#pragma once
// The users of the Web Connector service, kept in a text file: who may log in, with which password,
// and which company each one's Web Connector serves. Passwords are stored hashed only
// (PBKDF2-HMAC-SHA-256 with a random salt) and compared in constant time.
//
// One user per line; blank lines and lines starting with '#' are kept as they are:
//
//   # name   company  password hash                          company file (optional, rest of line)
//   acme     acme     pbkdf2-sha256:100000:9f3e…:5a1c…       C:\Company Files\Acme Roofing.qbw
//
// A user's Web Connector only ever exchanges requests of its own company. The company is the name a
// host gives "BeginSession"; the company file, when given, is the file QuickBooks is told to open,
// and a Web Connector that reports another file open is refused.
#include <string>
#include <string_view>
#include <vector>

namespace brenvale::webconnector {

inline constexpr int kDefaultHashIterations = 100000;
inline constexpr int kMinimumHashIterations = 1000;

struct User {
  std::string name;          // the UserName of the application's .QWC file
  std::string company;       // the company its Web Connector serves
  std::string passwordHash;  // "pbkdf2-sha256:ITERATIONS:SALT:HASH", salt and hash in hexadecimal
  std::string companyFile;   // the company file QuickBooks opens for it; empty: the one open
};

class Users {
 public:
  // Reads a users file. A file that cannot be read, or a line that is not a user, raises error 75
  // naming the file and the line.
  static Users Load(const std::string& path);
  static Users Parse(std::string_view text, const std::string& origin = "users file");

  // Adds the user, or replaces the one of the same name where it stands; checks every field.
  void Set(User user);
  // The file's text: the lines read, with users set since then in place or at the end.
  std::string Text() const;
  // Writes the text to `path` through a temporary file, readable by its owner only.
  void Save(const std::string& path) const;

  const std::vector<User>& All() const { return users_; }
  const User* Find(std::string_view name) const;
  // The user with that name and password, or nullptr. Takes about the same time for an unknown
  // user as for a wrong password.
  const User* Authenticate(std::string_view name, std::string_view password) const;
  // The companies served, in order of first appearance.
  std::vector<std::string> Companies() const;
  // The company file named for a company (empty when none is).
  std::string CompanyFile(std::string_view company) const;

  static std::string HashPassword(std::string_view password, int iterations = kDefaultHashIterations);
  static bool PasswordMatches(std::string_view password, std::string_view hash);

 private:
  static std::string Line(const User& u);

  std::string origin_ = "users file";
  std::vector<std::string> lines_;
  std::vector<User> users_;
  std::vector<std::size_t> userLine_;  // the line of each user
};

}  // namespace brenvale::webconnector
