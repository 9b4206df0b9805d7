#include "export/report_diff.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "export/report_figures.h"

namespace tradebill {
namespace {

using Json = nlohmann::json;
using Rows = std::vector<KeyedRow>;

constexpr const char* kValues = "values";

// Names that aren't here come behind those that are.
constexpr std::string_view kBlocks[] = {"schema",    "program",    "run",       "money",        "currencies",
                                        "matches",   "closed",     "positions", "positionSums", "cash",
                                        "exercises", "deliveries", "offsets",   "chains",       "days",
                                        "usage",     "account",    "analysis",  "findings"};

std::string ShortJson(const Json& value) {
    if (value.is_object()) return "{...}";
    return value.is_array() ? "[...]" : value.dump();
}

/// Where a comparison stands, and by what path of names without keys its rows are known.
struct Place {
    std::string text;
    std::string path;

    [[nodiscard]] Place Member(const std::string& name) const {
        return path.empty() ? Place{name, name} : Place{text + "." + name, path + "." + name};
    }
    [[nodiscard]] Place Row(const std::string& key) const {
        return {key.empty() ? text : text + "[" + key + "]", path};
    }
};

std::set<std::string> NamesOf(const Json& left, const Json& right) {
    std::set<std::string> names;
    for (const Json* const object : {&left, &right}) {
        for (const auto& [name, value] : object->items()) names.insert(name);
    }
    return names;
}

/// What of `rows`, which are sorted, `others` doesn't have as it is.
std::vector<const KeyedRow*> WithoutEqual(std::span<const KeyedRow> rows, std::span<const KeyedRow> others) {
    std::vector<const KeyedRow*> left;
    auto other = others.begin();
    for (const KeyedRow& row : rows) {
        while (other != others.end() && other->json < row.json) ++other;
        if (other != others.end() && other->json == row.json) {
            ++other;
        } else {
            left.push_back(&row);
        }
    }
    return left;
}

/// The rows of one key at the front of `rows`, which lose them.
std::span<const KeyedRow> TakeGroup(std::span<const KeyedRow>& rows, const std::string& key) {
    std::size_t count = 0;
    while (count < rows.size() && rows[count].key == key) ++count;
    const auto group = rows.first(count);
    rows = rows.subspan(count);
    return group;
}

Rows Sorted(Rows rows) {
    std::ranges::sort(rows, {}, [](const KeyedRow& row) { return std::tie(row.key, row.json); });
    return rows;
}

class CComparison {
public:
    explicit CComparison(const std::function<void(const ReportDifference&)>& onDifference) : tell_(onDifference) {}

    void CompareWholes(const CReportFigures& left, const CReportFigures& right) {
        const std::set<std::string> names = NamesOf(left.Rest(), right.Rest());
        const auto compare = [&](const std::string& name) {
            CompareMember({}, left.Rest(), right.Rest(), name);
            CompareRows(Place().Member(name), RecordsOf(left, name), RecordsOf(right, name));
        };
        for (const std::string_view block : kBlocks) {
            if (names.contains(std::string(block))) compare(std::string(block));
        }
        for (const std::string& name : names) {
            if (std::ranges::find(kBlocks, name) == std::end(kBlocks)) compare(name);
        }
    }

private:
    static Rows RecordsOf(const CReportFigures& figures, const std::string& name) {
        const auto found = figures.Records().find(name);
        return found == figures.Records().end() ? Rows() : found->second;
    }

    void CompareValues(const Place& place, const Json& left, const Json& right) {
        if (left.is_object() && right.is_object()) return CompareObjects(place, left, right);
        if (left.is_array() && right.is_array()) return CompareLists(place, left, right);
        if (left != right) tell_({place.text, ShortJson(left), ShortJson(right)});
    }

    /// Rows by their keys; elements of lists that have none by their places.
    void CompareLists(const Place& place, const Json& left, const Json& right) {
        if (HasKeys(place.path)) return CompareRows(place, RowsOf(place.path, left), RowsOf(place.path, right));
        for (std::size_t i = 0; i < std::max(left.size(), right.size()); ++i) {
            const Place element = place.Row(std::to_string(i));
            if (i < left.size() && i < right.size()) {
                CompareValues(element, left[i], right[i]);
            } else {
                tell_({element.text, i < left.size() ? std::optional(ShortJson(left[i])) : std::nullopt,
                       i < right.size() ? std::optional(ShortJson(right[i])) : std::nullopt});
            }
        }
    }

    void CompareObjects(const Place& place, const Json& left, const Json& right) {
        for (const std::string& name : NamesOf(left, right)) {
            if (name == kValues && left.contains(name) && right.contains(name)) {
                CompareNumbers(place.Member(name), left, right);
            } else {
                CompareMember(place, left, right, name);
            }
        }
    }

    /// Those of a record's numbers that no text of it states.
    void CompareNumbers(const Place& place, const Json& left, const Json& right) {
        if (!left.at(kValues).is_object() || !right.at(kValues).is_object()) {
            return CompareValues(place, left.at(kValues), right.at(kValues));
        }
        for (const std::string& name : NamesOf(left.at(kValues), right.at(kValues))) {
            const bool isTold = left.contains(name) && right.contains(name) && left.at(name) != right.at(name);
            if (!isTold) CompareMember(place, left.at(kValues), right.at(kValues), name);
        }
    }

    void CompareMember(const Place& place, const Json& left, const Json& right, const std::string& name) {
        const auto one = left.find(name);
        const auto other = right.find(name);
        const Place member = place.Member(name);
        if (one != left.end() && other != right.end()) return CompareValues(member, *one, *other);
        tell_({member.text, one == left.end() ? std::nullopt : std::optional(ShortJson(*one)),
               other == right.end() ? std::nullopt : std::optional(ShortJson(*other))});
    }

    void CompareRows(const Place& place, Rows left, Rows right) {
        left = Sorted(std::move(left));
        right = Sorted(std::move(right));
        std::span<const KeyedRow> lefts = left;
        std::span<const KeyedRow> rights = right;
        while (!lefts.empty() || !rights.empty()) {
            const bool isLeft = rights.empty() || (!lefts.empty() && lefts.front().key <= rights.front().key);
            const std::string key = isLeft ? lefts.front().key : rights.front().key;
            const auto ofLeft = TakeGroup(lefts, key);
            const auto ofRight = TakeGroup(rights, key);
            ComparePairs(place.Row(key), WithoutEqual(ofLeft, ofRight), WithoutEqual(ofRight, ofLeft));
        }
    }

    /// Rows of one key that aren't equal to one of the other side.
    void ComparePairs(const Place& place, const std::vector<const KeyedRow*>& left,
                      const std::vector<const KeyedRow*>& right) {
        for (std::size_t i = 0; i < std::max(left.size(), right.size()); ++i) {
            if (i < left.size() && i < right.size()) {
                CompareValues(place, Json::parse(left[i]->json), Json::parse(right[i]->json));
            } else {
                const auto textIn = [i](const auto& rows) {
                    return i < rows.size() ? std::optional(ShortJson(Json::parse(rows[i]->json))) : std::nullopt;
                };
                tell_({place.text, textIn(left), textIn(right)});
            }
        }
    }

    const std::function<void(const ReportDifference&)>& tell_;
};

}  // namespace

void CompareReports(const CReportFigures& left, const CReportFigures& right,
                    const std::function<void(const ReportDifference&)>& onDifference) {
    CComparison(onDifference).CompareWholes(left, right);
}

}  // namespace tradebill
