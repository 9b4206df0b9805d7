#include "requests/input_file.h"

#include <stdexcept>
#include <string>

#include "platform/file.h"
#include "requests/usage_error.h"

namespace tradebill {

CUnreadableInput::CUnreadableInput(const std::string& name, const std::string& reason)
    : std::runtime_error("can't read " + name + (reason.empty() ? "" : ": " + reason)) {}

std::string InputFileText(const std::string& path, const std::string& expected) {
    CFileBuffer buffer;
    const FileContent content = ReadWholeFile(path, buffer);
    if (content.state == FileState::Read) return std::string(content.bytes);
    if (content.state == FileState::Unreadable) throw CUnreadableInput(path, content.reason);
    throw CUsageError("can't read " + path + ": expected " + expected);
}

}  // namespace tradebill
