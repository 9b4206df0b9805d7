#include "graph/graph.h"

#include <algorithm>

#include "base/gbk.h"
#include "base/text.h"

namespace tradebill {

void CGraphSeries::SetData(std::int32_t xPosition, double yValue) {
    dataValues.push_back(std::make_unique<CGraphDataSet>(CGraphDataSet{xPosition, yValue}));
}

const CGraphDataSet* CGraphSeries::FindData(std::int32_t group) const {
    const auto found = std::ranges::find(dataValues, group, [](const auto& data) { return data->xPosition; });
    return found == dataValues.end() ? nullptr : found->get();
}

double CGraphSeries::ValueOf(std::int32_t group) const {
    const CGraphDataSet* const data = FindData(group);
    return data != nullptr ? data->yValue : 0.0;
}

CGraph::CGraph(std::int32_t /*kind*/) : valueSuffix{}, valueSuffix2{} {
    CopyField(unitText, "万元"_gbk);
    CopyField(unitText2, "百分比"_gbk);
}

}  // namespace tradebill
