// The users file (hashed passwords, the company each user serves) and the .QWC file.
#include <sys/stat.h>

#include <fstream>
#include <regex>

#include "brenvale/webconnector/QwcFile.hpp"
#include "webconnector/WebConnectorTestSupport.hpp"

namespace brenvale::webconnector::testing {
namespace {

const std::string kHash = Users::HashPassword("s3cret", kFastHash);

TEST(Users, PasswordsAreHashedSaltedAndChecked) {
  const std::string other = Users::HashPassword("s3cret", kFastHash);
  EXPECT_NE(kHash, other);  // a salt of its own
  EXPECT_EQ(kHash.find("s3cret"), std::string::npos);
  EXPECT_TRUE(Users::PasswordMatches("s3cret", kHash));
  EXPECT_TRUE(Users::PasswordMatches("s3cret", other));
  for (const char* wrong : {"", "s3cre", "s3cret ", "S3CRET"}) EXPECT_FALSE(Users::PasswordMatches(wrong, kHash)) << wrong;
  EXPECT_FALSE(Users::PasswordMatches("s3cret", "plain s3cret"));
  EXPECT_EQ(RaisedBy([] { Users::HashPassword("x", 10); }).Number(), 5);

  Users users;
  users.Set({"acme", "acme", kHash, {}});
  EXPECT_EQ(users.Authenticate("acme", "s3cret"), users.Find("acme"));
  EXPECT_EQ(users.Authenticate("acme", "wrong"), nullptr);
  EXPECT_EQ(users.Authenticate("nobody", "s3cret"), nullptr);
}

TEST(Users, BadLinesAreRefusedWithTheirNumber) {
  const std::string h = kHash;
  struct Case {
    std::string text, says;
  };
  const std::vector<Case> cases = {
      {"acme acme\n", "line 1: a user needs a name, a company and a password hash"},
      {"# c\n\nacme acme pbkdf2-sha256:1000:zz:00\n", "line 3: the password hash is not of the form"},
      {"acme acme pbkdf2-sha256:10:00:" + std::string(64, '0') + "\n", "line 1: the password hash is not of the form"},
      {"acme acme md5:1000:00:00\n", "the password hash is not of the form"},
      {"acme acme " + h + "\nacme bolt " + h + "\n", "line 2: the user 'acme' is listed twice"},
      {"a acme " + h + " C:\\A.qbw\nb acme " + h + " C:\\B.qbw\n", "line 2: the company 'acme' is given two company files"},
      {"a\x01 acme " + h + "\n", "line 1: the user name holds a blank or a control character"},
  };
  for (const Case& c : cases) {
    BrenvaleError e = RaisedBy([&] { Users::Parse(c.text, "users file 'u.txt'"); });
    EXPECT_EQ(e.Number(), 75) << c.text;
    EXPECT_EQ(e.Description().rfind("users file 'u.txt', line ", 0), 0u) << e.Description();
    EXPECT_NE(e.Description().find(c.says), std::string::npos) << e.Description();
  }
  EXPECT_EQ(RaisedBy([] { Users::Load("/nonexistent/users.txt"); }).Number(), 75);
}

TEST(Users, TheFileKeepsWhatItHadAndReadsBack) {
  const std::string text = "# our users\r\nacme  acme  " + kHash + "  C:\\Company Files\\Acme Roofing.qbw \n\n"
                           "bolt bolt " + kHash + "\n";
  Users users = Users::Parse(text);
  ASSERT_EQ(users.All().size(), 2u);
  EXPECT_EQ(users.Find("acme")->companyFile, "C:\\Company Files\\Acme Roofing.qbw");
  EXPECT_EQ(users.CompanyFile("acme"), "C:\\Company Files\\Acme Roofing.qbw");
  EXPECT_EQ(users.Companies(), (std::vector<std::string>{"acme", "bolt"}));

  // A new password for bolt replaces its line where it stands; a new user goes last.
  const std::string boltHash = Users::HashPassword("new", kFastHash);
  users.Set({"bolt", "bolt", boltHash, {}});
  users.Set({"cole", "acme", kHash, {}});
  EXPECT_EQ(users.Text(), "# our users\nacme  acme  " + kHash + "  C:\\Company Files\\Acme Roofing.qbw \n\n"
                          "bolt  bolt  " + boltHash + "\ncole  acme  " + kHash + "\n");
  EXPECT_EQ(RaisedBy([&] { users.Set({"dora", "acme", kHash, "C:\\Other.qbw"}); }).Number(), 5);
  EXPECT_EQ(RaisedBy([&] { users.Set({"has space", "acme", kHash, {}}); }).Number(), 5);

  const fs::path dir = fs::temp_directory_path() / ("brenvale-users-" + std::to_string(::getpid()));
  fs::create_directories(dir);
  const std::string file = (dir / "users.txt").string();
  users.Save(file);
  struct stat st {};
  ASSERT_EQ(::stat(file.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 0777, 0600u);
  Users back = Users::Load(file);
  EXPECT_EQ(back.Text(), users.Text());
  EXPECT_TRUE(back.Authenticate("bolt", "new"));
  EXPECT_FALSE(fs::exists(file + ".new"));
  fs::remove_all(dir);
}

TEST(Qwc, TheFileTheWebConnectorLoads) {
  QwcFile f;
  f.AppName = "Acme & Sons sync";
  f.AppURL = "https://sync.acme.example/qbwc";
  f.UserName = "acme";
  f.OwnerID = "{57F3B9B1-86F1-4FCC-B1EE-566DE1813D20}";
  f.FileID = "{90A44FB5-33D9-4815-AC85-BC87A7E7D1EB}";
  f.RunEveryNMinutes = 5;
  f.IsReadOnly = false;
  f.AuthFlags = 0xF;
  f.PersonalDataPref = "pdpNotNeeded";
  EXPECT_EQ(f.Text(),
            "<?xml version=\"1.0\"?>\n"
            "<QBWCXML>\n"
            "  <AppName>Acme &amp; Sons sync</AppName>\n"
            "  <AppID></AppID>\n"
            "  <AppURL>https://sync.acme.example/qbwc</AppURL>\n"
            "  <AppDescription>Exchanges data with Acme &amp; Sons sync.</AppDescription>\n"
            "  <AppSupport>https://sync.acme.example/support</AppSupport>\n"
            "  <UserName>acme</UserName>\n"
            "  <OwnerID>{57F3B9B1-86F1-4FCC-B1EE-566DE1813D20}</OwnerID>\n"
            "  <FileID>{90A44FB5-33D9-4815-AC85-BC87A7E7D1EB}</FileID>\n"
            "  <QBType>QBFS</QBType>\n"
            "  <AuthFlags>0xF</AuthFlags>\n"
            "  <PersonalDataPref>pdpNotNeeded</PersonalDataPref>\n"
            "  <Scheduler>\n"
            "    <RunEveryNMinutes>5</RunEveryNMinutes>\n"
            "  </Scheduler>\n"
            "  <IsReadOnly>false</IsReadOnly>\n"
            "</QBWCXML>\n");

  QwcFile fresh;
  fresh.AppName = "A";
  fresh.AppURL = "http://localhost:8080/";
  fresh.UserName = "u";
  const std::string text = fresh.Text();
  const std::regex guid("\\{[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}\\}");
  EXPECT_TRUE(std::regex_match(fresh.OwnerID, guid)) << fresh.OwnerID;
  EXPECT_TRUE(std::regex_match(fresh.FileID, guid)) << fresh.FileID;
  EXPECT_NE(fresh.OwnerID, fresh.FileID);
  EXPECT_EQ(fresh.AppSupport, "http://localhost:8080/support");
  EXPECT_EQ(text.find("password"), std::string::npos);
}

TEST(Qwc, FilesTheWebConnectorWouldRefuseAreNotWritten) {
  struct Case {
    std::string url, support, says;
    std::function<void(QwcFile&)> change = [](QwcFile&) {};
  };
  const std::vector<Case> cases = {
      {"http://sync.acme.example/qbwc", "", "plain http"},
      {"https://192.168.1.20/qbwc", "", "names an IP address"},
      {"http://127.0.0.1:8080/", "", "names an IP address"},
      {"ftp://acme.example/", "", "not an http or https address"},
      {"https://sync.acme.example/", "https://help.bolt.example/", "on the domain of the AppURL"},
      {"https://sync.acme.example/", "", "not a GUID", [](QwcFile& f) { f.OwnerID = "57F3B9B1"; }},
      {"https://sync.acme.example/", "", "needs an AppName", [](QwcFile& f) { f.AppName.clear(); }},
      {"https://sync.acme.example/", "", "needs a UserName", [](QwcFile& f) { f.UserName.clear(); }},
      {"https://sync.acme.example/", "", "'pdpMaybe' is not one of", [](QwcFile& f) { f.PersonalDataPref = "pdpMaybe"; }},
      {"https://sync.acme.example/", "", "RunEveryNMinutes", [](QwcFile& f) { f.RunEveryNMinutes = 0; }},
      {"https://sync.acme.example/", "", "AuthFlags", [](QwcFile& f) { f.AuthFlags = 0x10; }},
  };
  for (const Case& c : cases) {
    QwcFile f;
    f.AppName = "A";
    f.UserName = "u";
    f.AppURL = c.url;
    f.AppSupport = c.support;
    c.change(f);
    BrenvaleError e = RaisedBy([&] { f.Text(); });
    EXPECT_EQ(e.Number(), 5) << c.url;
    EXPECT_NE(e.Description().find(c.says), std::string::npos) << e.Description();
  }
  QwcFile sameDomain;
  sameDomain.AppName = "A";
  sameDomain.UserName = "u";
  sameDomain.AppURL = "https://sync.acme.example:8443/qbwc";
  sameDomain.AppSupport = "https://www.acme.example/help";
  EXPECT_NO_THROW(sameDomain.Text());
}

}  // namespace
}  // namespace brenvale::webconnector::testing
