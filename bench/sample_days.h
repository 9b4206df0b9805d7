// The statements of a sample account over and over, each under a day of its own: any amount of data in each layout.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "driver/report_request.h"

namespace tradebill {

struct SampleDays {
    std::string name;
    GenerateBillRequest request;  ///< format, kind and template; the root folder is the sample's
    std::string root;
    std::vector<std::pair<std::string, std::string>> days;  ///< day text and statement
};

/// Each folder in `samples` with its statements repeated `rounds` times. A statement's own date becomes the new day
/// wherever it stands.
[[nodiscard]] std::vector<SampleDays> RepeatSamples(const std::string& samples, int rounds);

}  // namespace tradebill
