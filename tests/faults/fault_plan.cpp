#include "fault_plan.h"

#include <cstddef>
#include <cstdlib>
#include <map>
#include <string_view>

namespace tradebill {
namespace {

bool ReadHow(std::string_view text, Plan& plan) {
    static const std::map<std::string_view, How> kHows = {{"once", How::Once}, {"ever", How::Ever},
                                                          {"half", How::Half}, {"halves", How::Halves},
                                                          {"full", How::Full}, {"kill", How::Kill}};
    const std::size_t colon = text.find(':');
    const auto found = kHows.find(text.substr(0, colon));
    if (found == kHows.end()) return false;
    plan.how = found->second;
    if (colon != std::string_view::npos) plan.error = std::atoi(text.substr(colon + 1).data());
    const bool fails = plan.how == How::Once || plan.how == How::Ever || plan.how == How::Full;
    return fails == (plan.error > 0);
}

}  // namespace

bool ReadPlan(char** argument, Plan& plan) {
    if (*argument == nullptr) return false;
    plan.log = *argument++;
    for (; *argument != nullptr; ++argument) {
        const std::string_view option = *argument;
        if (option == "--") {
            plan.program = argument + 1;
            return *plan.program != nullptr;
        }
        if (argument[1] == nullptr) return false;
        if (option == "--apart") {
            plan.apart.emplace_back(*++argument);
        } else if (option == "--until") {
            plan.until = *++argument;
        } else if (option == "--at" && argument[2] != nullptr && argument[3] != nullptr && argument[4] != nullptr) {
            plan.call = *++argument;
            plan.object = *++argument;
            plan.at = std::atol(*++argument);
            if (plan.at < 1 || !ReadHow(*++argument, plan)) return false;
        } else {
            return false;
        }
    }
    return false;
}

}  // namespace tradebill
