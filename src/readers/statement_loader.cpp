#include "readers/statement_loader.h"

#include "platform/file.h"
#include "readers/layout_table.h"
#include "readers/scan_listener.h"
#include "readers/statement_text.h"
#include "readers/template_reader.h"
#include "report/report.h"

namespace tradebill {
namespace {

void ReadWith(const Layout& layout, const StatementText& statement, CReport& report) {
    if (statement.listener != nullptr) statement.listener->OnReader(layout.name);
    layout.read(statement, report);
}

}  // namespace

CStatementLoader::CStatementLoader(CReport& report) : report_(report), template_(report.TemplatePath) {}

void CStatementLoader::Read(std::string_view day, std::string_view text, CScanListener* listener) {
    StatementText statement{.day = day, .text = text, .listener = listener};
    if (report_.IsForeign()) {
        ReadWith(ForeignLayout(), statement, report_);
        return;
    }
    statement.byTemplate = template_.Present();
    if (ReadTemplateStatement(statement, report_)) return;
    const Layout* const layout = FindLayout(report_.Request.StatementFormat, text);
    if (layout != nullptr) ReadWith(*layout, statement, report_);
}

bool CStatementLoader::Load(std::string_view day, const std::string& path) {
    const auto text = ReadStatementFile(path, buffer_);
    if (!text) return false;
    Read(day, *text);
    return true;
}

}  // namespace tradebill
