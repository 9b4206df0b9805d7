#include "batch/batch_state.h"

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "platform/file.h"

namespace tradebill {
namespace {

using Json = nlohmann::ordered_json;

}  // namespace

ReadState LoadBatchState(const std::string& path) {
    CFileBuffer buffer;
    const FileContent content = ReadWholeFile(path, buffer);
    if (content.state == FileState::Missing) return {};
    if (content.state != FileState::Read) {
        return {.unread = UnreadFile{.path = path, .state = content.state, .reason = content.reason}};
    }
    const Json json = Json::parse(content.bytes, nullptr, false);
    try {
        return {.state = BatchState{.accounts = json.at("accounts").get<std::int64_t>(),
                                    .today = json.at("today").get<std::string>(),
                                    .version = json.at("version").get<std::string>(),
                                    .unseen = json.value("unseen", std::vector<std::string>())}};
    } catch (const Json::exception&) {
        return {};
    }
}

bool SaveBatchState(const std::string& path, const BatchState& state) {
    Json json = {{"accounts", state.accounts}, {"today", state.today}, {"version", state.version}};
    if (!state.unseen.empty()) json["unseen"] = state.unseen;
    const std::string text = json.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
    return SaveInOneStep(
        path, [&](CFile& file) { return file.Write(text); }, Durability::OnDisk);
}

}  // namespace tradebill
