#pragma once
// The request builder: writes every qbXML request document the library sends, and the small I/O
// documents it saves and reads back; then sends the finished document to the session's request
// processor and hands back the parsed response.
//
// A request is a run of text pieces joined once, at the end; no line breaks, no indentation.
#include <string>
#include <string_view>
#include <vector>

#include "brenvale/core/Currency.hpp"
#include "brenvale/core/Date.hpp"
#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/core/Types.hpp"
#include "brenvale/qbxml/Dom.hpp"

namespace brenvale {

class zkBase;

class xmlBldr {
 public:
  xmlBldr();

  // --- writing -------------------------------------------------------------------------------
  // Appends XMLString unchanged as one piece; returns an empty string.
  std::string InsertRawXML(std::string_view XMLString);
  Long ErrNumber() const { return errNumber_; }
  const std::string& ErrMsg() const { return errMsg_; }
  // Joins the pieces and returns the XML text.
  std::string GetXML();
  void Clear();
  void CreateRptTop();
  void CreateTop();
  // `<TAG>V</TAG>`; an empty value is written only when ForceNull. Dropped when the session's
  // version is below MinVersion.
  void CreateElement2(std::string_view TagName, std::string_view Value, bool ForceNull, Currency MinVersion);
  // `<TAG>V</TAG>`, also for an empty value. Dropped when the session's version is below MinVersion.
  void CreateElement(std::string_view TagName, std::string_view Value, Currency MinVersion = Currency());
  // A "yyyy-mm-dd" element; nothing for the null date.
  void CreateDateElement(std::string_view Tag, Date d, Currency MinVersion = Currency());
  void CreateBlankTag(std::string_view TagName);
  // `<TAG ATTRIB = "V">`
  void OpenAggregate(std::string_view TagName, std::string_view Attrib, std::string_view Value);
  // `<TAG>`, or with query attributes `<TAG metaData="M" iterator="I" iteratorID="ID" >`.
  void OpenAggregateOnly(std::string_view TagName, std::string_view MetaData = {},
                         std::string_view Iterator = {}, std::string_view IteratorId = {});
  // `</TAG>`; without a name, the last aggregate opened.
  void EndAggregate(std::string_view TagName = {});
  void EnterValueOnly(std::string_view TagName);

  // --- query shortcuts -----------------------------------------------------------------------
  DomDocument QueryFullTableExecute(std::string_view QueryName, Long MaxRows);
  DomDocument QuerySingleExecute(std::string_view QueryType, std::string_view sValue,
                                 std::string_view sIdentifier, Long MaxRows, zqEnumListObjectType ObjType,
                                 std::string_view sFilterType = {}, bool IncludeDataExtensions = false);
  std::string XMLQuerySingleExecute(std::string_view QueryType, std::string_view sValue,
                                    std::string_view sIdentifier, Long MaxRows, zqEnumListObjectType ObjType,
                                    std::string_view sFilterType = {}, bool IncludeDataExtensions = false);

  // --- filters -------------------------------------------------------------------------------
  Variant InsertAccountFilter(const std::vector<std::string>& Accounts, bool WithChildren);
  Variant InsertEntityFilter(const std::vector<std::string>& Entities, bool WithChildren);
  Long InsertDateFilter(std::string_view FilterType, Date FromDate = Date(), Date ToDate = Date(),
                        qbEnumDateMacro DateMacro = qbDateMacroNone);
  // The "OwnerID" elements of a query.
  void AddDataExtTag(bool bAdd, zqEnumListObjectType mObjectType);

  // --- request wrappers ----------------------------------------------------------------------
  void InsertQueryRs(zkBase& o, Integer iRequestId);
  void InsertAddRq(zkBase& o, Integer iRequestId);
  void InsertModRq(zkBase& o, Integer iRequestId);
  void NewClearSubscriptions();
  void NewClear();
  void IOClear();
  std::string XMLInsertBegin(std::string_view QueryType, std::string_view InsertCmd);
  DomDocument XMLInsertFinish(std::string_view QueryType, std::string_view InsertCmd);

  // --- files ---------------------------------------------------------------------------------
  // Loads a file (Windows-1252) into a new document; empty when missing or malformed.
  DomDocument ReadXml(const std::string& sFile);
  // Closes the I/O document and writes it to Path in Windows-1252, replacing the file.
  Long SaveToFile(const std::string& Path);

  // --- sending -------------------------------------------------------------------------------
  DomDocument SendToQB();
  DomDocument NewSendRequest();
  DomDocument NewSendSubscriptionRequest();
  std::string XMLSendToQB();

  const std::string& TracePath() const { return tracePath_; }
  void TracePath(std::string path) { tracePath_ = std::move(path); }

 private:
  void AppendPiece(std::string piece);
  void JoinPieces();
  bool PassesGate(Currency minVersion) const;
  void WriteTrace(std::string_view text);
  // Joins, traces and hands the text to the processor ("ProcessSubscription" for a subscription
  // document when routeSubscriptions); every failure becomes error 1999.
  std::string Exchange(bool routeSubscriptions);
  void WriteSingleQuery(std::string_view QueryType, std::string_view sValue, std::string_view sIdentifier,
                        Long maxReturned, zqEnumListObjectType ObjType, std::string_view sFilterType,
                        bool IncludeDataExtensions);
  void WriteQueryWrapper(std::string_view suffixRq, std::string_view suffix, zkBase& o, Integer id,
                         int which);

  std::vector<std::string> pieces_;  // slot 0 stays empty
  std::size_t pieceCount_ = 0;
  std::string xml_;
  std::string lastAggregate_;
  std::string tracePath_;
  Long errNumber_ = 0;
  std::string errMsg_;
};

// Escapes a value for qbXML: & > " ' < @ in that order, then every character of Windows-1252
// codes 128-255 as "&#N;" with its Windows-1252 code.
std::string EscapeXmlText(std::string_view text);

}  // namespace brenvale
