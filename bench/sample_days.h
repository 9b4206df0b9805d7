// The statements of a sample account over and over, each under a day of its own: any amount of data in each layout.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "driver/report_request.h"

namespace tradebill {

struct SampleDay {
    std::string day;
    std::string text;
};

/// The samples' names, in order.
[[nodiscard]] std::vector<std::string> SampleNames(const std::string& samples);

/// Format, kind and template of the sample in `folder`.
[[nodiscard]] GenerateBillRequest SampleRequest(const std::filesystem::path& folder);

/// The statements of the sample in `folder`, all of them again and again until there are `leastDays`, each under a day
/// (yyyymmdd) of its own, which stands wherever the statement's own date stood.
[[nodiscard]] std::vector<SampleDay> RepeatSample(const std::filesystem::path& folder, std::size_t leastDays);

}  // namespace tradebill
