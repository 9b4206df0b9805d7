// What a run keeps beside the stores: the tally of closed positions per contract, and where the page and its pictures
// lie.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/lock.h"
#include "report/records.h"

namespace tradebill {

class CReportDocument {
public:
    std::vector<std::unique_ptr<ContractOffset>> Offsets;  ///< in order of first appearance

    std::string BillFolder;       ///< the page's folder, once it is prepared
    std::string ImageFolderName;  ///< of the pictures' folder, relative to BillFolder
    int PageWidth = 0;            ///< of every table, in pixels; 0 until pictures have been made

    /// Folds a row of the domestic family: its P/L is computed from prices, lots and the contract's unit, not taken
    /// from the statement. Counts it in AccountStatistics. May ask the host for the unit, with the lock held.
    void FoldClosedRow(const PingDetail& row);

    /// Folds a row of the foreign family, into the long fields alone: the statement's P/L as it stands.
    void FoldForeignClosedRow(const PingDetail& row);

    void ClearOffsets();

private:
    struct TextHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
    };
    struct Found {
        ContractOffset& offset;
        bool isNew;
    };

    /// The tally under `key`; a new one bears the row's contract and delivery month.
    Found FindOrCreate(std::string_view key, const PingDetail& row);

    std::unordered_map<std::string, ContractOffset*, TextHash, std::equal_to<>> byKey_;
    CLock lock_;
};

extern CReportDocument ReportDocument;

}  // namespace tradebill
