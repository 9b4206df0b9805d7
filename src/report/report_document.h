// What a run keeps beside the stores: the tally of closed positions per contract, and where the page and its pictures
// lie.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/text_hash.h"
#include "report/records.h"

namespace tradebill {

/// A picture file of the page.
struct SavedPicture {
    std::string_view name;  ///< of the file; lives as long as the module
    int width;              ///< pixels
    int height;             ///< pixels
};

/// Tallies are filled by closed_rows.h.
class CReportDocument {
public:
    std::vector<std::unique_ptr<ContractOffset>> Offsets;  ///< in order of first appearance

    std::string BillFolder;       ///< the page's folder, once it is prepared
    std::string ImageFolderName;  ///< of the pictures' folder, relative to BillFolder
    std::string WorkFolder;       ///< where the run has its pictures until they go to their folder; empty: not there
    int PageWidth = 0;            ///< of every table, in pixels; 0 until pictures have been made

    std::vector<SavedPicture> SavedPictures;  ///< those that this run has made; a file may lie there without

    struct Found {
        ContractOffset& offset;
        bool isNew;
    };

    /// The tally under `key`; a new one bears the row's contract and delivery month. Valid until ClearOffsets().
    Found FindOrCreate(std::string_view key, const PingDetail& row);

    void ClearOffsets();

private:
    TextMap<ContractOffset*> byKey_;
};

}  // namespace tradebill
