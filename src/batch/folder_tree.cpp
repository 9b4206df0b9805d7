#include "batch/folder_tree.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "export/file_digest.h"
#include "platform/paths.h"
#include "platform/sha256.h"

namespace tradebill {
namespace {

bool IsOwnFolder(const std::string& path) {
    return IsFolder(path) && !IsLink(path);
}

std::optional<std::vector<std::string>> SortedNames(const std::string& folder) {
    auto names = NamesIn(folder);
    if (names) std::ranges::sort(*names);
    return names;
}

std::string Below(std::string_view folder, std::string_view name) {
    return std::string(folder).append("/").append(name);
}

/// Adds a line for each file below `folder`, whose names begin with `prefix`. False if one can't be read.
bool AddLines(const std::string& folder, const std::string& prefix, CSha256& lines) {
    const auto names = SortedNames(folder);
    if (!names) return false;
    for (const std::string& name : *names) {
        const std::string path = Below(folder, name);
        if (IsOwnFolder(path)) {
            if (!AddLines(path, prefix + Utf8Path(name) + "/", lines)) return false;
            continue;
        }
        const auto digest = DigestOfFile(path);
        if (!digest) return false;
        lines.Add(digest->sha256 + "  " + prefix + Utf8Path(name) + "\n");
    }
    return true;
}

}  // namespace

bool RemoveTree(const std::string& folder) {
    if (!IsOwnFolder(folder)) return RemoveFile(folder);
    const auto names = NamesIn(folder);
    if (!names) return false;
    bool isEmpty = true;
    for (const std::string& name : *names) isEmpty &= RemoveTree(Below(folder, name));
    return isEmpty && RemoveFolder(folder);
}

std::optional<std::map<std::string, std::string>> DigestsIn(const std::string& folder) {
    const auto names = SortedNames(folder);
    if (!names) return std::nullopt;
    std::map<std::string, std::string> digests;
    for (const std::string& name : *names) {
        const std::string path = Below(folder, name);
        if (IsOwnFolder(path)) {
            CSha256 lines;
            if (!AddLines(path, "", lines)) return std::nullopt;
            digests[Utf8Path(name) + "/"] = lines.Digest();
        } else {
            const auto digest = DigestOfFile(path);
            if (!digest) return std::nullopt;
            digests[Utf8Path(name)] = digest->sha256;
        }
    }
    return digests;
}

}  // namespace tradebill
