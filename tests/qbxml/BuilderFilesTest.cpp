// The request builder's files: saved I/O documents in Windows-1252 and read back, and the trace.
#include "QbxmlTestSupport.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace brenvale {
namespace {

using testing::InstallProcessor;
using testing::ReadBytes;
using testing::SessionTest;
using testing::TempDir;
using testing::WriteBytes;

const std::string kEnvelope = "<QBXMLMsgsRq onError = \"continueOnError\">";

class BuilderFiles : public SessionTest {
 protected:
  TempDir dir_;
};

TEST_F(BuilderFiles, SavedDocumentsAreWindows1252AndReadBack) {
  const std::string path = dir_.File("customer.xml");
  xmlBldr b;
  b.IOClear();
  b.CreateElement("Name", "Caf\u00e9 \u2026 \u20ac5");  // escaped: references on disk
  b.InsertRawXML("<Memo>\u00e9\u2026\u20ac</Memo>");     // raw: Windows-1252 bytes on disk
  EXPECT_EQ(b.SaveToFile(path), 0);

  EXPECT_EQ(ReadBytes(path), "<Brenvale>" + kEnvelope +
                                 "<Name>Caf&#233; &#133; &#128;5</Name><Memo>\xE9\x85\x80</Memo>"
                                 "</QBXMLMsgsRq></Brenvale>\n");

  DomDocument doc = b.ReadXml(path);
  DomNode envelope = doc.DocumentElement().Child(0);
  EXPECT_EQ(doc.DocumentElement().BaseName(), "Brenvale");
  EXPECT_EQ(envelope.ChildText("Name"), "Caf\u00e9 \u2026 \u20ac5");
  EXPECT_EQ(envelope.ChildText("Memo"), "\u00e9\u2026\u20ac");

  // Saving again replaces the file.
  b.IOClear();
  b.SaveToFile(path);
  EXPECT_EQ(ReadBytes(path), "<Brenvale>" + kEnvelope + "</QBXMLMsgsRq></Brenvale>\n");
}

TEST_F(BuilderFiles, CharactersOutsideTheCodePageAreKeptOnDiskAsReferences) {
  const std::string path = dir_.File("outside.xml");
  xmlBldr b;
  b.IOClear();
  b.CreateElement("Name", "\u4e2d");
  b.SaveToFile(path);
  EXPECT_NE(ReadBytes(path).find("<Name>&#20013;</Name>"), std::string::npos);
  EXPECT_EQ(b.ReadXml(path).DocumentElement().FirstChild().FirstChild().Text(), "\u4e2d");
}

TEST_F(BuilderFiles, ReadXmlGivesAnEmptyDocumentForMissingOrBrokenFiles) {
  xmlBldr b;
  EXPECT_TRUE(b.ReadXml(dir_.File("missing.xml")).Empty());
  WriteBytes(dir_.File("broken.xml"), "<Brenvale><open>");
  EXPECT_TRUE(b.ReadXml(dir_.File("broken.xml")).Empty());
  EXPECT_TRUE(b.ReadXml(dir_.File("")).Empty());  // the folder itself
  // A file marked as UTF-8 by its byte order mark is read as UTF-8.
  WriteBytes(dir_.File("utf8.xml"), "\xEF\xBB\xBF<a>\xC3\xA9</a>");
  EXPECT_EQ(b.ReadXml(dir_.File("utf8.xml")).DocumentElement().Text(), "\u00e9");
}

TEST_F(BuilderFiles, SaveFailuresAreRaisedWithTheSystemText) {
  WriteBytes(dir_.File("plain"), "x");
  const std::string path = dir_.File("plain") + "/sub.xml";  // below a file: fails even for root
  xmlBldr b;
  b.IOClear();
  try {
    b.SaveToFile(path);
    FAIL() << "no error raised";
  } catch (const BrenvaleError& e) {
    EXPECT_EQ(e.Number(), platform::kFileError);
    EXPECT_EQ(e.Source(), "Brenvale");
    EXPECT_NE(e.Description().find(path), std::string::npos) << e.Description();
    EXPECT_NE(e.Description().find("Not a directory"), std::string::npos) << e.Description();
  }
}

// --- trace ----------------------------------------------------------------------------------

const std::string kResponse =
    "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs><ClassQueryRs requestID=\"1\" statusCode=\"0\" "
    "statusSeverity=\"Info\" statusMessage=\"Status OK\"/></QBXMLMsgsRs></QBXML>";
const std::string kResponseBody =
    "<QBXML><QBXMLMsgsRs><ClassQueryRs requestID=\"1\" statusCode=\"0\" statusSeverity=\"Info\" "
    "statusMessage=\"Status OK\"/></QBXMLMsgsRs></QBXML>";

std::string Framed(const std::string& request, const std::string& response) {
  return "<OUTGOING>\n" + request + "\n</OUTGOING>\n<RETURNS>\n" + response + "\n</RETURNS>\n";
}

// A request the trace can tell apart by its request ID.
void SendOne(xmlBldr& b, const std::string& tag) {
  b.NewClear();
  b.OpenAggregate("ClassQueryRq", "requestID", tag);
  b.EndAggregate();
  b.NewSendRequest();
}

std::string Query(const std::string& tag) {
  return "<ClassQueryRq requestID = \"" + tag + "\"></ClassQueryRq>";
}

TEST_F(BuilderFiles, BuilderTraceHoldsTheLastRequestOnly) {
  InstallProcessor()->responses = {kResponse};
  xmlBldr b;
  b.TracePath(dir_.File("trace.txt"));
  SendOne(b, "First");
  SendOne(b, "Second");
  // The plain declaration and the QBD 1.0 DOCTYPE of a session without a version are stripped.
  EXPECT_EQ(ReadBytes(b.TracePath()),
            "<Trace>\n" +
                Framed("<QBXML>" + kEnvelope + Query("Second") + "</QBXMLMsgsRq></QBXML>", kResponseBody) +
                "</Trace>\n");

  // SendToQB alone appends, without the <Trace> frame.
  b.NewClear();
  b.EndAggregate("QBXMLMsgsRq");
  b.EndAggregate("QBXML");
  b.SendToQB();
  const std::string content = ReadBytes(b.TracePath());
  EXPECT_EQ(content.substr(content.size() - 11), "</RETURNS>\n") << content;
  EXPECT_EQ(content.rfind("<Trace>"), 0u);
}

TEST_F(BuilderFiles, SessionTracePathTakesPrecedenceAndOnlyAppends) {
  InstallProcessor()->responses = {kResponse};
  const std::string sessionPath = dir_.File("session.txt");
  WriteBytes(sessionPath, "earlier\n");
  CurrentSession().tracePath = sessionPath;
  xmlBldr b;
  b.TracePath(dir_.File("own.txt"));
  SendOne(b, "First");
  SendOne(b, "Second");
  EXPECT_EQ(ReadBytes(sessionPath),
            "earlier\n" + Framed("<QBXML>" + kEnvelope + Query("First") + "</QBXMLMsgsRq></QBXML>", kResponseBody) +
                Framed("<QBXML>" + kEnvelope + Query("Second") + "</QBXMLMsgsRq></QBXML>", kResponseBody));
  EXPECT_EQ(ReadBytes(b.TracePath()), "<Trace>\n</Trace>\n");

  // A builder without a path of its own traces to the session's file all the same.
  xmlBldr plain;
  SendOne(plain, "Third");
  EXPECT_NE(ReadBytes(sessionPath).find(Query("Third")), std::string::npos);
}

TEST_F(BuilderFiles, TraceStripsOnlyThePlainDeclarationAndTheFixedDoctypes) {
  auto rqp = InstallProcessor();
  rqp->responses = {"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><QBXML/>"};
  CurrentSession().tracePath = dir_.File("trace.txt");
  const std::string iso = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>";

  SetVersion("CA3.0");
  xmlBldr b;
  SendOne(b, "A");
  SetVersion("13.0");  // not one of the sixteen: its DOCTYPE stays
  SendOne(b, "B");
  EXPECT_EQ(ReadBytes(dir_.File("trace.txt")),
            Framed(iso + "<QBXML>" + kEnvelope + Query("A") + "</QBXMLMsgsRq></QBXML>", iso + "<QBXML/>") +
                Framed(iso + "<!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 13.0//EN' ><QBXML>" + kEnvelope +
                           Query("B") + "</QBXMLMsgsRq></QBXML>",
                       iso + "<QBXML/>"));
}

TEST_F(BuilderFiles, UnwritableTracePathsAreIgnored) {
  InstallProcessor()->responses = {kResponse};
  WriteBytes(dir_.File("plain"), "x");
  xmlBldr b;
  b.TracePath(dir_.File("plain") + "/trace.txt");
  SendOne(b, "A");
  EXPECT_EQ(b.ErrMsg(), "Status OK");
  CurrentSession().tracePath = dir_.File("plain") + "/session.txt";
  SendOne(b, "B");
  EXPECT_EQ(b.ErrMsg(), "Status OK");
}

}  // namespace
}  // namespace brenvale
