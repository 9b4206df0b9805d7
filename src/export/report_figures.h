// The figures of a report's JSON, read back: what is there once as a tree, rows of lists by their keys.
#pragma once

#include <map>
#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tradebill {

/// A text that is no JSON of a report, or of another schema. Its words say which.
class CNoReportJson : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One element of a list.
struct KeyedRow {
    std::string key;   ///< what tells it from the others: "20240102 rb2405 17"
    std::string json;  ///< all of it, written in one way whatever the text looked like
};

/// Whether rows of the list at `path` ("matches", "analysis.days") have names of their own: its key is made of fields.
[[nodiscard]] bool HasKeys(std::string_view path);

/// The rows of such a list. What is no object has an empty key.
[[nodiscard]] std::vector<KeyedRow> RowsOf(std::string_view path, const nlohmann::json& list);

/// Takes about the memory of the text.
class CReportFigures {
public:
    /// Throws CNoReportJson.
    explicit CReportFigures(std::string_view text);
    ~CReportFigures();
    CReportFigures(const CReportFigures&) = delete;
    CReportFigures& operator=(const CReportFigures&) = delete;

    /// Everything but the records of statements.
    [[nodiscard]] const nlohmann::json& Rest() const { return *rest_; }
    /// The records, list by list.
    [[nodiscard]] const std::map<std::string, std::vector<KeyedRow>>& Records() const { return records_; }

private:
    std::map<std::string, std::vector<KeyedRow>> records_;
    std::unique_ptr<nlohmann::json> rest_;  // the last: what it is parsed from fills the records
};

}  // namespace tradebill
