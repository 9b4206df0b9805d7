// The picture files of a report, as report_images.h writes and the page shows them.
#pragma once

#include <string>
#include <string_view>

namespace tradebill {

class CReportDocument;

inline constexpr std::string_view kShrinkPicture = "BillShrink.png";
inline constexpr std::string_view kExpandPicture = "BillExpand.png";
inline constexpr std::string_view kAccountSummary = "AccountSummary.jpg";
inline constexpr std::string_view kAccountDetail = "AccountDetail.jpg";
inline constexpr std::string_view kAccountFigure = "AccountFigure.jpg";
inline constexpr std::string_view kBillStatistics = "BillStatistics.jpg";  ///< made, and shown by no page
inline constexpr std::string_view kAccountStatics = "AccountStatics.jpg";
inline constexpr std::string_view kHealthFigure = "HealthFigure.jpg";  ///< account yield
inline constexpr std::string_view kRiskFigure = "RiskFigure.jpg";      ///< trading yield
inline constexpr std::string_view kTradeStatistics = "TradeStatistics.jpg";
inline constexpr std::string_view kLastPositions = "LastPositions.jpg";
inline constexpr std::string_view kMatchDetails = "MatchDetails.jpg";
inline constexpr std::string_view kOffsetRecords = "OffsetRecords.jpg";
inline constexpr std::string_view kOffsetFigure = "OffsetFigure.jpg";

/// Where the file of a picture lies by now.
///
/// REQUIRES: the folders of `document` are prepared.
[[nodiscard]] std::string FullPicturePath(const CReportDocument& document, std::string_view picture);

/// Where the page looks for it in the end.
[[nodiscard]] std::string ShownPicturePath(const CReportDocument& document, std::string_view picture);

}  // namespace tradebill
