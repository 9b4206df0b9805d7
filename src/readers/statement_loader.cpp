#include "readers/statement_loader.h"

#include <string>
#include <string_view>
#include <utility>

#include "platform/file.h"
#include "readers/layout_table.h"
#include "readers/scan_listener.h"
#include "readers/statement_limit.h"
#include "readers/statement_text.h"
#include "readers/template_reader.h"
#include "report/report.h"

namespace tradebill {
namespace {

void ReadWith(const Layout& layout, const StatementText& statement, CReport& report) {
    if (statement.listener != nullptr) statement.listener->OnReader(layout.name);
    layout.read(statement, report);
}

/// Whether only `mode` keeps a file from being opened.
bool IsReadableAlone(const std::string& path, FileMode mode) {
    return !CFile(path, mode).IsOpen() && CFile(path, FileMode::Read).IsOpen();
}

/// The text lies in `buffer`.
StatementFile ReadFile(const std::string& path, StatementAccess access, CFileBuffer& buffer) {
    const FileMode mode = access == StatementAccess::ReadAlone ? FileMode::Read : FileMode::Update;
    FileContent content = ReadWholeFile(path, buffer, mode);
    if (content.state == FileState::Unreadable && IsReadableAlone(path, mode)) {
        return {.state = FileState::Missing, .reason = std::move(content.reason)};
    }
    return {.state = content.state,
            .reason = std::move(content.reason),
            .bytes = content.bytes,
            .text = content.bytes.substr(0, content.bytes.find('\0'))};
}

}  // namespace

CStatementLoader::CStatementLoader(CReport& report, StatementAccess access, const StatementLimit& limit)
    : report_(report), template_(report.TemplatePath, report.CarriedTemplate), access_(access), limit_(limit) {}

void CStatementLoader::Read(std::string_view day, std::string_view text, CScanListener* listener) {
    StatementText statement{.day = day, .text = text, .listener = listener, .onlyRows = onlyRows_};
    if (report_.IsForeign()) {
        ReadWith(ForeignLayout(), statement, report_);
        return;
    }
    statement.byTemplate = template_.Present();
    if (ReadTemplateStatement(statement, report_)) return;
    const Layout* const layout = FindLayout(report_.Request.StatementFormat, text);
    if (layout != nullptr) ReadWith(*layout, statement, report_);
}

StatementFile CStatementLoader::Load(std::string_view day, const std::string& path, CStatementListener* listener) {
    auto tooLarge = WhyTooLarge(path, limit_);
    StatementFile file = tooLarge ? StatementFile{.state = StatementState::Unreadable, .reason = *std::move(tooLarge)}
                                  : ReadFile(path, access_, buffer_);
    if (listener != nullptr) listener->OnStatement(day, path, file);
    if (file.state != StatementState::Read) return file;
    Read(day, file.text, listener);
    if (listener != nullptr) listener->OnStatementEnd();
    return file;
}

}  // namespace tradebill
