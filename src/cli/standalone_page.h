// The page as one file that can be sent: its pictures inside, its text in UTF-8.
#pragma once

#include <string>

namespace tradebill {

class CReport;

/// Makes `file` of the finished page of `report`, which lies at `pagePath`, and its pictures. A picture that is missing
/// shows as nothing. False if the page can't be read or is the file itself, and if the file can't be written.
[[nodiscard]] bool WriteStandalonePage(const CReport& report, const std::string& pagePath, const std::string& file);

}  // namespace tradebill
