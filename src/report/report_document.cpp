#include "report/report_document.h"

#include <memory>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "report/records.h"

namespace tradebill {

CReportDocument::Found CReportDocument::FindOrCreate(std::string_view key, const PingDetail& row) {
    if (const auto found = byKey_.find(key); found != byKey_.end()) return {*found->second, false};
    auto offset = std::make_unique<ContractOffset>();
    CopyField(offset->CONTRACT, FieldText(row.CONTRACT));
    CopyField(offset->DELIVERY, FieldText(row.DELIVERY));
    ContractOffset& created = *offset;
    Offsets.push_back(std::move(offset));
    byKey_.emplace(key, &created);
    return {created, true};
}

void CReportDocument::ClearOffsets() {
    Offsets.clear();
    byKey_.clear();
}

}  // namespace tradebill
